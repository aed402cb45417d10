#include "textini/Veklinereplace.h"

#include <algorithm>

#include "base/Text.h"

namespace {

constexpr int32_t kNoLimit = -1;
constexpr std::string_view kDelimiters = " \"'(),./:;[\\]";

bool IsDelimiter(char c) { return kDelimiters.find(c) != std::string_view::npos; }

bool StandsAlone(std::string_view line, size_t start, size_t end) {
  return (start == 0 || IsDelimiter(line[start - 1])) && (end == line.size() || IsDelimiter(line[end]));
}

/// Where the line with the position begins, which is not before `from`.
size_t LineStart(std::string_view text, size_t from, size_t position) {
  while (position > from && text[position - 1] != '\r' && text[position - 1] != '\n') --position;
  return position;
}

}  // namespace

TLineReplace::TLineReplace(const TLineReplaceOptions& options)
    : options_(options), remaining_(options.most == 0 ? kNoLimit : options.most) {}

bool TLineReplace::Run(const std::string& text, NewText& changed) {
  if (options_.searchText.empty() || options_.searchText.find_first_of("\r\n") != std::string::npos)
    return true;
  const auto search = Search(options_.caseSensitive);
  const std::string_view whole = text;
  std::string done;
  size_t position = 0, appended = 0;
  for (bool found = search->Exec(text); found; found = remaining_ != 0 && search->ExecPos(position)) {
    const size_t start = LineStart(text, position, search->MatchStart());
    std::string_view rest = whole.substr(start), line;
    TakeLine(rest, line);
    const int32_t before = replaced_;
    done.clear();
    if (!ProcessLine(line, done)) return false;
    position = start + line.size();
    if (replaced_ == before) continue;
    changed.Append(whole.substr(appended, start - appended));
    changed.Append(done);
    appended = position;
  }
  if (replaced_ > 0) changed.Append(whole.substr(appended));
  return true;
}

/// `done` receives the line as it comes out; false gives up.
bool TLineReplace::ProcessLine(std::string_view line, std::string& done) {
  if (options_.stopped && options_.stopped()) return false;
  std::string_view rest = line;
  for (Occurrence at = FindInLine(rest); at && remaining_ != 0; at = FindInLine(rest)) {
    if (options_.onProcessLine) {
      std::string whole(rest);
      const bool ran = ScriptLine(whole);
      done += whole;
      return ran;
    }
    if (!ReplaceInLine(rest, at, done)) return false;
  }
  done += rest;
  return true;
}

bool TLineReplace::ScriptLine(std::string& line) {
  ++found_;
  const std::string before = line;
  if (!options_.onProcessLine(line)) return false;
  if (line != before) CountReplacement();
  return true;
}

/// Moves what has been dealt with from `rest` to `done`.
bool TLineReplace::ReplaceInLine(std::string_view& rest, Occurrence at, std::string& done) {
  std::string scripted;
  bool replace = true;
  if (options_.onFindText) {
    scripted = options_.replaceText;
    if (!options_.onFindText(found_, scripted, replace)) return false;
  }
  if (replace) {
    done.append(rest, 0, at.start).append(options_.onFindText ? scripted : options_.replaceText);
    CountReplacement();
  } else {
    done.append(rest, 0, at.end);
  }
  ++found_;
  rest.remove_prefix(at.end);
  return true;
}

void TLineReplace::CountReplacement() {
  ++replaced_;
  if (remaining_ > 0) --remaining_;
}

std::unique_ptr<TRegExpr> TLineReplace::Search(bool exact) const {
  auto search =
      std::make_unique<TRegExpr>(options_.searchText, TRegExprModifiers{.i = !exact, .literal = true});
  search->SetStopped(options_.stopped, options_.clock);
  return search;
}

TLineReplace::Occurrence TLineReplace::Find(std::string_view text, bool exact) {
  std::unique_ptr<TRegExpr>& search = exact ? exact_ : anyCase_;
  if (!search) search = Search(exact);
  if (!search->Exec(text)) return {};
  return {search->MatchStart(), search->MatchEnd()};
}

TLineReplace::Occurrence TLineReplace::FindInLine(std::string_view rest) {
  return IsWordFound(Find(rest, options_.caseSensitive), rest);
}

/// The first acceptable occurrence, the given one or a later one. Later ones are looked for the other way
/// round: in any letter case when it matters, exactly when it does not; and each is looked for in what
/// follows the first character of the one before, as if the line began there.
TLineReplace::Occurrence TLineReplace::IsWordFound(Occurrence at, std::string_view line) {
  if (!options_.wholeWords) return at;
  size_t before = 0;
  while (at && !StandsAlone(line, at.start, at.end)) {
    size_t next = at.start;
    NextCodePoint(line, next);
    line.remove_prefix(next);
    before += next;
    at = Find(line, !options_.caseSensitive);
  }
  if (at) at = {before + at.start, before + at.end};
  return at;
}
