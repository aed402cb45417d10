#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "coreapi/Vekregexpr.h"
#include "platform/Contents.h"

struct TLineReplaceOptions {
  std::string searchText, replaceText;
  bool caseSensitive = true;
  bool wholeWords = false;
  int32_t most = 0;  // replacements; 0 for no limit

  /// Asked for each occurrence, with its number from 0; may change what is put in, or keep the occurrence. A
  /// false result gives up.
  std::function<bool(int32_t count, std::string& replaceText, bool& doReplace)> onFindText = {};

  /// Asked once for each line that holds the search text, instead of replacing in it; likewise.
  std::function<bool(std::string& line)> onProcessLine = {};

  std::function<bool()> stopped = {};
  Clock* clock = nullptr;  // see TRegExpr::SetStopped
};

/// Replaces a text line by line. A text that holds a line break, and the empty one, occur in no line.
class TLineReplace {
 public:
  explicit TLineReplace(const TLineReplaceOptions& options);

  /// Replaces in the text, whose line breaks stay as they are. `changed` receives the new text, or nothing
  /// where none was replaced; false after giving up. What lies between the lines that hold the search text is
  /// passed over in one go.
  bool Run(const std::string& text, NewText& changed);

  int32_t Found() const { return found_; }
  int32_t Replaced() const { return replaced_; }

 private:
  struct Occurrence {
    size_t start = std::string_view::npos, end = std::string_view::npos;
    explicit operator bool() const { return start != std::string_view::npos; }
  };

  std::unique_ptr<TRegExpr> Search(bool exact) const;
  Occurrence Find(std::string_view text, bool exact);
  Occurrence FindInLine(std::string_view rest);
  Occurrence IsWordFound(Occurrence occurrence, std::string_view line);
  bool ProcessLine(std::string_view line, std::string& done);
  bool ReplaceInLine(std::string_view& rest, Occurrence occurrence, std::string& done);
  bool ScriptLine(std::string& line);
  void CountReplacement();

  const TLineReplaceOptions& options_;
  std::unique_ptr<TRegExpr> exact_, anyCase_;
  int32_t remaining_;
  int32_t found_ = 0, replaced_ = 0;
};
