#include "fuzz/FuzzInputs.h"

#include <algorithm>
#include <iterator>

namespace {

/// A generator whose every state is a good start, so that each run can have its own.
class Random {
 public:
  explicit Random(uint64_t state) : state_(state) {}

  uint64_t Next() {
    uint64_t mixed = state_ += 0x9E3779B97F4A7C15;
    mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
    return mixed ^ mixed >> 31;
  }

  /// 0 for an empty range, so that the end of a text is a position too.
  size_t Below(size_t end) { return end == 0 ? 0 : static_cast<size_t>(Next() % end); }
  char Byte() { return static_cast<char>(Next() & 0xFF); }
  const std::string& Of(const StringList& texts) { return texts[Below(texts.size())]; }

 private:
  uint64_t state_;
};

using Variation = void (*)(std::string& text, Random& random, const FuzzFormat& format);

size_t PieceSize(Random& random) { return 1 + random.Below(random.Below(4) == 0 ? 64 : 6); }

void FlipBit(std::string& text, Random& random, const FuzzFormat&) {
  if (text.empty()) return;
  char& byte = text[random.Below(text.size())];
  byte = static_cast<char>(byte ^ 1 << random.Below(8));
}

void SetByte(std::string& text, Random& random, const FuzzFormat&) {
  if (!text.empty()) text[random.Below(text.size())] = random.Byte();
}

void InsertByte(std::string& text, Random& random, const FuzzFormat&) {
  text.insert(random.Below(text.size() + 1), 1, random.Byte());
}

void InsertWord(std::string& text, Random& random, const FuzzFormat& format) {
  text.insert(random.Below(text.size() + 1), random.Of(format.words));
}

void AppendWord(std::string& text, Random& random, const FuzzFormat& format) {
  text += random.Of(format.words);
}

void ReplaceByWord(std::string& text, Random& random, const FuzzFormat& format) {
  text.replace(random.Below(text.size() + 1), PieceSize(random), random.Of(format.words));
}

void Delete(std::string& text, Random& random, const FuzzFormat&) {
  text.erase(random.Below(text.size() + 1), PieceSize(random));
}

void CopyPiece(std::string& text, Random& random, const FuzzFormat&) {
  const std::string piece = text.substr(random.Below(text.size() + 1), PieceSize(random));
  text.insert(random.Below(text.size() + 1), piece);
}

/// The text up to somewhere, and a seed from somewhere on.
void Splice(std::string& text, Random& random, const FuzzFormat& format) {
  const std::string& seed = random.Of(format.seeds);
  text.resize(random.Below(text.size() + 1));
  text.append(seed, random.Below(seed.size() + 1));
}

constexpr Variation kVariations[] = {FlipBit,    SetByte,    InsertByte,    InsertWord,
                                     InsertWord, AppendWord, ReplaceByWord, ReplaceByWord,
                                     Delete,     Delete,     CopyPiece,     Splice};

}  // namespace

FuzzInputs::FuzzInputs(FuzzFormat format, uint64_t seed) : format_(std::move(format)), seed_(seed) {}

std::string FuzzInputs::Make(uint64_t run) const {
  if (run < format_.seeds.size()) return format_.seeds[static_cast<size_t>(run)];
  Random random(Random(seed_).Next() ^ Random(run).Next());
  // Some are made of words alone.
  std::string text;
  for (size_t words = random.Below(4) == 0 ? 1 + random.Below(24) : 0; words > 0; --words) {
    AppendWord(text, random, format_);
  }
  if (text.empty()) text = random.Of(format_.seeds);
  for (size_t steps = 1 + random.Below(1 + random.Below(8)); steps > 0; --steps) {
    kVariations[random.Below(std::size(kVariations))](text, random, format_);
  }
  text.resize(std::min(text.size(), kLargestInput));
  return text;
}
