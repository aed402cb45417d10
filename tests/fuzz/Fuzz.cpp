#include "fuzz/Fuzz.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

StringList Fields(std::string_view input, size_t count) {
  StringList fields = SplitAt(input, kFieldEnd);
  if (fields.size() < count) fields.resize(count);
  return fields;
}

void Require(bool condition, std::string_view words) {
  if (condition) return;
  std::fprintf(stderr, "fault: %.*s\n", static_cast<int>(words.size()), words.data());
  std::abort();
}

void RequireSame(std::string_view got, std::string_view wanted, std::string_view words) {
  if (got == wanted) return;
  Require(false, std::string(words) + "\n  got    " + Literal(got) + "\n  wanted " + Literal(wanted));
}

void CheckOtherLines(const StringList& before, const StringList& after, ptrdiff_t most, ptrdiff_t mostNew) {
  const auto [oldMiddle, newMiddle] = std::ranges::mismatch(before, after);
  auto oldEnd = before.end(), newEnd = after.end();
  while (oldEnd != oldMiddle && newEnd != newMiddle && oldEnd[-1] == newEnd[-1]) --oldEnd, --newEnd;
  Require(oldEnd - oldMiddle <= most && newEnd - newMiddle <= mostNew,
          "other lines have changed: " + Literal(JoinLines(after, "\n")));
}

std::string Literal(std::string_view text) {
  std::string literal = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      literal.append(1, '\\').append(1, c);
    } else if (c == '\n') {
      literal += "\\n";
    } else if (byte >= 0x20 && byte < 0x7F) {
      literal += c;
    } else {
      char octal[5];
      std::snprintf(octal, sizeof octal, "\\%03o", static_cast<unsigned>(byte));
      literal += octal;
    }
  }
  return literal + '"';
}
