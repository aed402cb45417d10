#include <algorithm>
#include <optional>

#include "fuzz/Fuzz.h"
#include "textini/Veklinereplace.h"

namespace {

std::string Lower(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return text;
}

/// Goes through the text character by character, in ASCII.
class SlowReplace {
 public:
  explicit SlowReplace(const TLineReplaceOptions& options)
      : options_(options), remaining_(options.most == 0 ? -1 : options.most) {}

  std::string Run(const std::string& text) {
    std::string result, line;
    for (const char c : text) {
      if (c != '\r' && c != '\n') {
        line += c;
        continue;
      }
      result += Line(line) + c;
      line.clear();
    }
    return result + Line(line);
  }

  int32_t found = 0;

 private:
  size_t Position(const std::string& text, bool exact) const {
    const std::string& wanted = options_.searchText;
    const size_t hit = exact ? text.find(wanted) : Lower(text).find(Lower(wanted));
    return wanted.empty() || hit == std::string::npos ? 0 : hit + 1;
  }

  size_t IsWordFound(size_t p, const std::string& line, const std::string& wanted, bool caseSensitive) const {
    if (!options_.wholeWords || p < 1) return p;
    const auto isDelimiter = [](char c) {
      return std::string(" \"'(),./:;[\\]").find(c) != std::string::npos;
    };
    const size_t n = wanted.size();
    const bool start = p == 1 || isDelimiter(line[p - 2]);
    const bool end = p == line.size() || line.size() < p + n || isDelimiter(line[p + n - 1]);
    if (start && end) return p;
    const std::string rest = caseSensitive ? Lower(line).substr(p) : line.substr(p);
    const std::string text = caseSensitive ? Lower(wanted) : wanted;
    const size_t hit = rest.find(text);
    const size_t r = IsWordFound(hit == std::string::npos ? 0 : hit + 1, rest, text, caseSensitive);
    return r > 0 ? r + p : 0;
  }

  std::string Line(std::string rest) {
    std::string done;
    while (remaining_ != 0) {
      const size_t p = IsWordFound(Position(rest, options_.caseSensitive), rest, options_.searchText,
                                   options_.caseSensitive);
      if (p == 0) break;
      done += rest.substr(0, p - 1) + options_.replaceText;
      rest.erase(0, p - 1 + options_.searchText.size());
      ++found;
      if (remaining_ > 0) --remaining_;
    }
    return done + rest;
  }

  const TLineReplaceOptions& options_;
  int32_t remaining_;
};

class HeldText final : public NewText {
 public:
  void Append(std::string_view piece) override { text += piece; }
  std::string text;
};

}  // namespace

FuzzFormat TargetFormat() {
  return {.seeds = {"cat\x1F"
                    "dog\x1Fw\x1F"
                    "cat-fish cat\r\ncats CAT\n(cat)",
                    "aa\x1F\x1Fwi3\x1Fxaaa aa\raAa",
                    "a\r\nb\x1Fx\x1F\x1F"
                    "a\r\nb"},
          .words = {"a", "A",  "aa",   "b",  "cat", "CAT", " ", ".", "[", "\\",
                    "-", "\t", "\r\n", "\n", "\r",  "w",   "i", "1", "2", std::string(kFieldEnd)},
          .runs = 20'000};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const StringList fields = Fields(InputText(data, size), 4);
  const std::string& flags = fields[2];
  const auto holds = [&flags](char c) { return flags.find(c) != std::string::npos; };
  for (const std::string& field : fields) {
    if (std::ranges::any_of(field, [](char c) { return static_cast<unsigned char>(c) > 0x7F; })) return 0;
  }
  TLineReplaceOptions options{.searchText = fields[0], .replaceText = fields[1]};
  options.caseSensitive = !holds('i');
  options.wholeWords = holds('w');
  options.most = holds('1') ? 1 : holds('2') ? 2 : 0;
  if (fields[0].size() > 1'000) return 0;

  TLineReplace lines(options);
  HeldText changed;
  Require(lines.Run(fields[3], changed), "gave up");
  const std::string& text = lines.Replaced() > 0 ? changed.text : fields[3];
  SlowReplace slow(options);
  RequireSame(text, slow.Run(fields[3]), "the slow twin");
  Require(lines.Found() == slow.found && lines.Replaced() == slow.found, "the numbers");
  return 0;
}
