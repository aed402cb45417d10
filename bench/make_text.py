"""Writes lines of ordinary words, and 10,000 times a word that is nowhere else: make_text.py FILE BYTES"""
import random
import sys

random.seed(1)
words = """the build step reads a settings file line by line and stamps versions into texts with regular expressions
while scripts decide what is kept between runs of error warning failed compiling linking Object Module Release Debug
string vector service client server lines files""".split()
lines = [" ".join(random.choices(words, k=12)) for _ in range(20000)]
size, step = int(sys.argv[2]), int(sys.argv[2]) // 10000
written, due = 0, step
with open(sys.argv[1], "w") as out:
    while written < size:
        line = random.choice(lines)
        if written >= due:
            line += " Needle42 here"
            due += step
        out.write(line + "\n")
        written += len(line) + 1
