// What reading a program's output line by line costs at least: vek_line_reader PROGRAM ARGUMENT... writes the
// lines on.

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

int main(int argc, char** argv) {
  int ends[2];
  if (argc < 2 || pipe(ends) != 0) return 2;
  if (fork() == 0) {
    dup2(ends[1], 1);
    close(ends[0]);
    execvp(argv[1], argv + 1);
    _exit(127);
  }
  close(ends[1]);
  FILE* input = fdopen(ends[0], "r");
  char* line = nullptr;
  size_t room = 0;
  for (ssize_t length; (length = getline(&line, &room, input)) > 0;) {
    std::fwrite(line, 1, static_cast<size_t>(length), stdout);
  }
  std::free(line);
  return 0;
}
