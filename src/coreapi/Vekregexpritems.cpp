#include "coreapi/Vekregexpritems.h"

#include <algorithm>
namespace {

using Bytes = std::bitset<256>;

/// What an expression may hold beyond what is understood here.
struct NotUnderstood {};

constexpr int kMostDepth = 50;

Bytes Range(unsigned char first, unsigned char last) {
  Bytes bytes;
  for (unsigned c = first; c <= last; ++c) bytes.set(c);
  return bytes;
}

/// All characters beyond ASCII, which are not told apart.
Bytes High() { return Range(0x80, 0xFF); }
Bytes All() { return Range(0, 0xFF); }

/// The class that an escape such as \w stands for.
std::optional<Bytes> EscapedClass(char c) {
  const Bytes blanks = Bytes().set(' ').set('\t'), lineBreaks = Range('\n', '\r');
  switch (c) {
    case 'd':
      return Range('0', '9') | High();
    case 'w':
      return Range('0', '9') | Range('A', 'Z') | Range('a', 'z') | Bytes().set('_') | High();
    case 's':
      return blanks | lineBreaks | High();
    case 'h':
      return blanks | High();
    case 'v':
      return lineBreaks | High();
    case 'D':
    case 'W':
    case 'S':
    case 'H':
    case 'V':
    case 'N':
      return All();
    default:
      return {};
  }
}

std::optional<char> EscapedControl(char c) {
  constexpr std::string_view kNames = "aefnrt", kControls = "\a\x1B\f\n\r\t";
  const size_t at = kNames.find(c);
  if (at == std::string_view::npos) return {};
  return kControls[at];
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool IsPunctuation(char c) { return c > ' ' && c < 0x7F && !IsDigit(c) && !IsLetter(c); }

unsigned char First(const Bytes& bytes) {
  unsigned char first = 0;
  while (!bytes.test(first)) ++first;
  return first;
}

class Parser {
 public:
  Parser(std::string_view expression, bool dotMatchesLineBreaks)
      : rest_(expression), length_(expression.size()), dotMatchesLineBreaks_(dotMatchesLineBreaks) {}

  std::vector<TRegExprItem> Whole() {
    std::vector<TRegExprItem> items = Sequence();
    if (!rest_.empty()) throw NotUnderstood();
    return items;
  }

 private:
  size_t Position() const { return length_ - rest_.size(); }
  char Next() const { return rest_.empty() ? '\0' : rest_.front(); }

  char Take() {
    if (rest_.empty()) throw NotUnderstood();
    const char c = rest_.front();
    rest_.remove_prefix(1);
    return c;
  }

  bool TakeIf(std::string_view text) {
    const bool isNext = rest_.starts_with(text);
    if (isNext) rest_.remove_prefix(text.size());
    return isNext;
  }

  /// Up to the end, a "|" or a ")".
  std::vector<TRegExprItem> Sequence() {
    std::vector<TRegExprItem> items;
    while (!rest_.empty() && Next() != '|' && Next() != ')') {
      const size_t begin = Position();
      std::optional<TRegExprItem> item = Item();
      // A character beyond ASCII is several bytes.
      if (item && (item->bytes & High()).any()) item->isRepeatable = true;
      if (item) Quantify(*item);
      // A quantifier of something without characters.
      if (!item && IsQuantifier(Next())) throw NotUnderstood();
      if (!item) continue;
      item->begin = begin;
      item->end = Position();
      items.push_back(*item);
    }
    return items;
  }

  static bool IsQuantifier(char c) { return c == '*' || c == '+' || c == '?' || c == '{'; }

  /// Nothing for what matches no characters.
  std::optional<TRegExprItem> Item() {
    const char c = Take();
    if (c == '^' || c == '$') return {};
    if (c == '(') return Group();
    if (c == '[') return TRegExprItem{.bytes = Class()};
    if (c == '\\') return Escape();
    if (c == '.') return TRegExprItem{.bytes = dotMatchesLineBreaks_ ? All() : ~Bytes().set('\r').set('\n')};
    if (IsQuantifier(c)) throw NotUnderstood();
    if (static_cast<unsigned char>(c) >= 0x80) return HighCharacter();
    return Character(c);
  }

  static TRegExprItem Character(char c) {
    TRegExprItem item;
    item.bytes.set(static_cast<unsigned char>(c));
    item.leastText = c >= ' ' ? 1 : 0;
    return item;
  }

  TRegExprItem HighCharacter() {
    while ((Next() & 0xC0) == 0x80) Take();
    return {.bytes = High()};
  }

  std::optional<TRegExprItem> Escape() {
    const char c = Take();
    if (c == 'b' || c == 'B' || c == 'A' || c == 'Z' || c == 'z') return {};
    if (IsPunctuation(c)) return Character(c);
    if (const auto control = EscapedControl(c)) return Character(*control);
    const auto bytes = EscapedClass(c);
    if (!bytes) throw NotUnderstood();
    return TRegExprItem{.bytes = *bytes};
  }

  Bytes Class() {
    const bool isNegated = TakeIf("^");
    bool isExact = true;
    Bytes bytes;
    for (bool isFirst = true; isFirst || Next() != ']'; isFirst = false) {
      const Bytes first = ClassItem(isExact);
      const bool isRange = Next() == '-' && rest_.size() > 1 && rest_[1] != ']';
      if (!isRange) {
        bytes |= first;
        continue;
      }
      Take();
      const Bytes last = ClassItem(isExact);
      if (first.count() != 1 || last.count() != 1) throw NotUnderstood();
      bytes |= Range(First(first), First(last));
    }
    Take();
    if (isNegated) return isExact ? ~bytes | High() : All();
    return bytes;
  }

  /// `isExact` becomes false when the bytes may be more than what it matches.
  Bytes ClassItem(bool& isExact) {
    const char c = Take();
    if (c == '[' && (Next() == ':' || Next() == '.' || Next() == '=')) throw NotUnderstood();
    if (static_cast<unsigned char>(c) >= 0x80) {
      HighCharacter();
      isExact = false;
      return High();
    }
    if (c != '\\') return Range(static_cast<unsigned char>(c), static_cast<unsigned char>(c));
    const char escaped = Take();
    if (const auto bytes = EscapedClass(escaped)) {
      isExact = false;
      return *bytes;
    }
    const auto control = EscapedControl(escaped);
    if (!control && !IsPunctuation(escaped)) throw NotUnderstood();
    const auto byte = static_cast<unsigned char>(control.value_or(escaped));
    return Range(byte, byte);
  }

  /// Nothing for one that only looks ahead or behind.
  std::optional<TRegExprItem> Group() {
    if (++depth_ > kMostDepth || Next() == '*') throw NotUnderstood();
    const bool looks = TakeIf("?=") || TakeIf("?!") || TakeIf("?<=") || TakeIf("?<!");
    if (!looks && !TakeIf("?:") && Next() == '?') throw NotUnderstood();
    TRegExprItem group;
    group.isOptional = group.isRepeatable = true;
    size_t least = std::string_view::npos;
    do {
      size_t text = 0;
      bool isText = true;
      for (const TRegExprItem& item : Sequence()) {
        group.bytes |= item.bytes;
        text += item.leastText;
        isText = isText && item.leastText > 0;
      }
      least = std::min(least, isText ? text : 0);
    } while (TakeIf("|"));
    if (Take() != ')') throw NotUnderstood();
    --depth_;
    group.leastText = least;
    if (looks) return {};
    return group;
  }

  void Quantify(TRegExprItem& item) {
    if (!IsQuantifier(Next())) return;
    item.leastText = 0;
    const char c = Take();
    if (c == '{') {
      item.isRepeatable = true;
      item.isOptional = item.isOptional || Next() == '0';
      Counts();
    } else {
      item.isOptional = item.isOptional || c != '+';
      item.isRepeatable = item.isRepeatable || c != '?';
    }
    // Lazy or possessive.
    if (Next() == '?' || Next() == '+') Take();
    if (IsQuantifier(Next())) throw NotUnderstood();
  }

  /// The rest of {n}, {n,} and {n,m}; what looks otherwise may be a text.
  void Counts() {
    const auto number = [this] {
      const std::string_view before = rest_;
      while (IsDigit(Next())) Take();
      return rest_.size() < before.size();
    };
    const bool isCount = number();
    if (TakeIf(",")) number();
    if (!isCount || !TakeIf("}")) throw NotUnderstood();
  }

  std::string_view rest_;
  const size_t length_;
  const bool dotMatchesLineBreaks_;
  int depth_ = 0;
};

}  // namespace

std::optional<std::vector<TRegExprItem>> RegExprItems(std::string_view expression,
                                                      bool dotMatchesLineBreaks) try {
  return Parser(expression, dotMatchesLineBreaks).Whole();
} catch (const NotUnderstood&) {
  return {};
}
