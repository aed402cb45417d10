// usage: vek_file_replacer FILE COUNT: replaces the file so many times by one with a line more in it.
#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const std::string file = argv[1], fresh = file + ".new";
  for (long count = std::atol(argv[2]), line = 0; line < count; ++line) {
    FILE* stream = std::fopen(fresh.c_str(), "w");
    if (!stream || std::fprintf(stream, "\"file%05ld.txt\"=dword:00000001\n", line) < 0 ||
        std::fclose(stream) != 0 || std::rename(fresh.c_str(), file.c_str()) != 0) {
      std::perror(file.c_str());
      return 1;
    }
  }
}
