#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "coreapi/Vekregexprcode.h"

struct TRegExprItem;

/// Where matches can be at all. A landmark is a part of an expression that every match contains, such as
/// "ing (?:lines|files)" of "\w+ing (?:lines|files)": it is found many times faster than a match, and what
/// comes before it in the expression tells how far before it a match may start.
class TRegExprLandmarks {
 public:
  /// Nothing where the expression has no such part or is not understood. `dotMatchesLineBreaks` is the
  /// modifier s; letter case matters.
  static std::optional<TRegExprLandmarks> Of(std::string_view expression, bool dotMatchesLineBreaks);

  void Begin(std::string_view text, size_t from);

  /// Not in short texts, nor where landmarks are everywhere.
  bool Pays() const { return pays_; }

  /// The first landmark at `from` or later. Until behind its position no match starts that does not start at
  /// the earliest start or later.
  struct Landmark {
    size_t position, earliestStart;
  };
  std::optional<Landmark> Next(size_t from);

 private:
  void RunBackwards(const TRegExprItem& item, size_t index);
  size_t Find(size_t from);
  size_t EarliestStart(size_t from, size_t position) const;

  Code part_;
  MatchData data_;

  // What comes before the part, as an automaton that runs backwards, the expression's last item in the
  // highest bit. Bit 0 stands for the start of a match. The items match what those of the expression do, or
  // more.
  std::array<uint64_t, 256> matching_{};  // for each byte the items that match it
  uint64_t all_ = 0, repeatable_ = 0, optional_ = 0;

  std::string_view text_;
  size_t begun_ = 0;                  // where the search began
  size_t soughtFrom_ = 0, next_ = 0;  // the first landmark from there on
  size_t cost_ = 0;                   // in bytes of the text that could have been searched instead
  bool isKnown_ = false, pays_ = false;
};
