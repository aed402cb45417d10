#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>

#include "coreapi/Vekerrors.h"
#include "vekcoreapi_export.h"

class Clock;

/// An expression that does not compile, or a match that goes beyond the engine's limits; the message is the
/// engine's. A search that was stopped ends with it too.
class VEK_API ERegExpr : public EVekError {
 public:
  using EVekError::EVekError;
  ~ERegExpr() override;
};

struct TRegExprModifiers {
  bool i = false;        // letter case does not matter
  bool m = false;        // ^ and $ match at line ends too
  bool s = true;         // a dot matches line breaks too
  bool literal = false;  // the expression is a text that matches itself; m and s then mean nothing
};

/// A regular expression and the search with it, on PCRE2. CR LF, CR and LF each end a line. Texts are UTF-8,
/// and so are expressions: classes of characters and letter case know Unicode, and bytes that are not UTF-8
/// are passed over. An expression that is not UTF-8 itself is matched byte for byte.
class VEK_API TRegExpr {
 public:
  /// Compiles the expression; raises ERegExpr.
  explicit TRegExpr(std::string_view expression, TRegExprModifiers modifiers = {});
  ~TRegExpr();
  TRegExpr(const TRegExpr&) = delete;
  TRegExpr& operator=(const TRegExpr&) = delete;

  /// Asked again and again during a search, within a match too; true ends the search with ERegExpr. With a
  /// clock it is asked often enough for a user who waits.
  void SetStopped(std::function<bool()> stopped, Clock* clock = nullptr);

  /// Looks for the first match that starts at byte `from` or later. The text must stay where it is while its
  /// matches are used. Raises ERegExpr when a match goes beyond the engine's limit of steps.
  bool Exec(std::string_view text, size_t from = 0);

  /// Likewise, in the text of the last Exec.
  bool ExecPos(size_t from);

  /// The next match. It begins where the last one ended, or one character further when that was empty.
  bool ExecNext();

  // The match, in bytes from the start of the text.
  size_t MatchStart() const;
  size_t MatchEnd() const;
  std::string_view Match() const;

  /// Where the match starts, in characters from 1.
  size_t MatchPos();

  /// Where ExecNext goes on; beyond the end of the text after an empty match there.
  size_t NextStart() const;

 private:
  class Engine;
  std::unique_ptr<Engine> engine_;
};
