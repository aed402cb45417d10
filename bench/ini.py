"""usage: ini.py write|read FILE COUNT: that many values, the file opened anew for each of them."""
import configparser
import sys

what, file, count = sys.argv[1], sys.argv[2], int(sys.argv[3])
for number in range(1, count + 1):
    ini = configparser.ConfigParser(interpolation=None)
    ini.read(file, encoding="utf-8")
    key = f"file{number:05}.txt"
    if what == "read":
        ini["Keys"][key]
        continue
    ini["Keys"][key] = "new"
    with open(file, "w", encoding="utf-8") as stream:
        ini.write(stream)
