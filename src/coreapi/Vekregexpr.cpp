#include "coreapi/Vekregexpr.h"

#include <algorithm>
#include <optional>
#include <string>

#include "base/Text.h"
#include "coreapi/Vekregexprcode.h"
#include "coreapi/Vekregexprlandmark.h"
#include "platform/Clock.h"

namespace {

// How many steps a match may take from one place where it could start. Most take few: beyond the first limit
// the match begins anew with an expression that can be stopped between any two steps.
constexpr uint32_t kQuickSteps = 1'000'000, kMostSteps = 10'000'000;

// The engine's stack: the thread's own has room for 32 KiB of it.
constexpr size_t kFirstStack = size_t{128} << 10, kMostStack = size_t{64} << 20;

uint32_t Options(TRegExprModifiers modifiers) {
  uint32_t options = PCRE2_USE_OFFSET_LIMIT;
  if (modifiers.i) options |= PCRE2_CASELESS;
  if (modifiers.literal) return options | PCRE2_LITERAL;
  if (modifiers.m) options |= PCRE2_MULTILINE;
  if (modifiers.s) options |= PCRE2_DOTALL;
  return options;
}

}  // namespace

ERegExpr::~ERegExpr() = default;

class TRegExpr::Engine {
 public:
  Engine(std::string_view expression, TRegExprModifiers modifiers)
      : expression_(expression), options_(Options(modifiers)) {
    uint32_t general = options_;
    if (IsUtf8(expression)) {
      general |= PCRE2_UTF | PCRE2_MATCH_INVALID_UTF;
      if (!modifiers.literal) general |= PCRE2_UCP;
    }
    int error = 0;
    size_t offset = 0;
    general_.options = general;
    general_.quick = Compile(expression, general, error, offset);
    if (!general_.quick) {
      const size_t position = CharacterCount(expression.substr(0, offset));
      throw ERegExpr(ErrorText(error) + " after character " + std::to_string(position));
    }
    uint32_t holdsLineBreak = 0;
    pcre2_pattern_info(general_.quick.get(), PCRE2_INFO_HASCRORLF, &holdsLineBreak);
    splitsLineBreaks_ = holdsLineBreak != 0;
    if (!modifiers.i && !modifiers.literal && !StartsByRule()) {
      landmarks_ = TRegExprLandmarks::Of(expression, modifiers.s);
    }
    data_.reset(Allocated(pcre2_match_data_create_from_pattern(general_.quick.get(), nullptr)));
    context_.reset(Allocated(pcre2_match_context_create(nullptr)));
    pcre2_set_callout(context_.get(), &Engine::Callout, this);
  }

  std::function<bool()> stopped;
  Clock* clock = nullptr;

  bool Exec(std::string_view text, size_t from) {
    text_ = text;
    program_ = &ProgramFor(text);
    countedTo_ = countedCharacters_ = 0;
    if (landmarks_) landmarks_->Begin(text, from);
    return Search(from);
  }

  bool ExecPos(size_t from) { return from <= text_.size() && Search(from); }
  bool ExecNext() { return ExecPos(NextStart()); }

  std::string_view Text() const { return text_; }
  size_t Start() const { return pcre2_get_ovector_pointer(data_.get())[0]; }
  size_t End() const { return pcre2_get_ovector_pointer(data_.get())[1]; }
  size_t NextStart() const { return End() > Start() ? End() : CharacterEnd(End()); }

  size_t CharactersBeforeMatch() {
    if (Start() < countedTo_) countedTo_ = countedCharacters_ = 0;
    countedCharacters_ += CharacterCount(text_.substr(countedTo_, Start() - countedTo_));
    countedTo_ = Start();
    return countedCharacters_;
  }

 private:
  /// The expression, and once it is needed the form that asks between its items whether to stop.
  struct Program {
    uint32_t options = 0;
    Code quick, careful;
  };

  /// In a text of ASCII alone Unicode makes no difference, and its letter case would cost several times as
  /// much.
  Program& ProgramFor(std::string_view text) {
    const bool wantsAscii = (general_.options & PCRE2_UTF) != 0 && text.size() > 4096;
    if (!wantsAscii || !IsAscii(text) || !IsAscii(expression_)) return general_;
    if (ascii_.options == 0) {
      int error = 0;
      size_t offset = 0;
      ascii_.options = options_;
      ascii_.quick = Compile(expression_, options_, error, offset);
    }
    return ascii_.quick ? ascii_ : general_;
  }

  pcre2_code* Careful() {
    int error = 0;
    size_t offset = 0;
    if (!program_->careful) {
      program_->careful = Compile(expression_, program_->options | PCRE2_AUTO_CALLOUT, error, offset);
    }
    return program_->careful ? program_->careful.get() : program_->quick.get();
  }

  static int Callout(pcre2_callout_block*, void* engine) {
    return static_cast<Engine*>(engine)->Stopped() ? PCRE2_ERROR_CALLOUT : 0;
  }

  bool Stopped() const { return stopped && stopped(); }
  double Seconds() const { return clock ? clock->Seconds() : 0; }

  /// Goes through the text in strides, which adapt to the time they take so that a stop is noticed soon; what
  /// is found does not depend on them.
  bool Search(size_t from) {
    constexpr double kShort = 0.005, kLong = 0.05;  // seconds
    while (true) {
      if (Stopped()) throw ERegExpr("the search was stopped");
      const size_t next = StrideEnd(from);
      const double begun = Seconds();
      const int result = Match(from, next);
      const double took = Seconds() - begun;
      if (took < kShort) stride_ = std::min(stride_ * 2, kLongestStride);
      if (took > kLong) stride_ = std::max<size_t>(stride_ / 8, 1);
      if (result > 0) return true;
      if (result == PCRE2_ERROR_CALLOUT) throw ERegExpr("the search was stopped");
      if (result != PCRE2_ERROR_NOMATCH) throw ERegExpr(ErrorText(result));
      if (next > text_.size()) return false;
      from = next;
    }
  }

  /// Where the stride after this one begins, which is never within a character or a line break.
  size_t StrideEnd(size_t from) const {
    if (text_.size() - from < stride_) return text_.size() + 1;
    size_t end = from + stride_ - 1;
    for (int i = 0; i < 3 && end < text_.size() && (text_[end] & 0xC0) == 0x80; ++i) ++end;
    return CharacterEnd(end);
  }

  /// Behind the character, or the CR LF, at the position.
  size_t CharacterEnd(size_t position) const {
    if (position >= text_.size()) return position + 1;
    if (IsWithinLineBreak(position + 1)) return position + 2;
    if ((general_.options & PCRE2_UTF) == 0) return position + 1;
    NextCodePoint(text_, position);
    return position;
  }

  /// Whether the position is one between CR and LF, where a match starts only when the expression names them.
  bool IsWithinLineBreak(size_t position) const {
    return !splitsLineBreaks_ && position > 0 && text_.substr(position - 1, 2) == "\r\n";
  }

  /// Whether the engine itself passes over most places where a match could start, as it does after ".*".
  bool StartsByRule() const {
    uint32_t options = 0, kind = 0;
    pcre2_pattern_info(general_.quick.get(), PCRE2_INFO_ALLOPTIONS, &options);
    pcre2_pattern_info(general_.quick.get(), PCRE2_INFO_FIRSTCODETYPE, &kind);
    constexpr uint32_t kAtLineStarts = 2;
    return (options & PCRE2_ANCHORED) != 0 || (kind == kAtLineStarts && !expression_.starts_with('^'));
  }

  /// A place that is never within a character or a line break, so far before the given one.
  size_t WholeStart(size_t from, size_t start) const {
    while (start > from && start < text_.size() && (text_[start] & 0xC0) == 0x80) --start;
    return start > from && IsWithinLineBreak(start) ? start - 1 : start;
  }

  /// A match that starts at `from` or later, before `end`; the engine's result. Looks only around landmarks
  /// while that pays.
  int Match(size_t from, size_t end) {
    while (landmarks_ && landmarks_->Pays()) {
      const auto landmark = landmarks_->Next(from);
      if (!landmark) return PCRE2_ERROR_NOMATCH;
      const size_t start = WholeStart(from, landmark->earliestStart), behind = landmark->position + 1;
      if (start >= end) return PCRE2_ERROR_NOMATCH;
      const int result = MatchBetween(start, std::min(behind, end));
      if (result != PCRE2_ERROR_NOMATCH || behind >= end) return result;
      from = behind;
    }
    return MatchBetween(from, end);
  }

  int MatchBetween(size_t from, size_t end) {
    const size_t last = std::min(end - 1, text_.size());
    pcre2_set_offset_limit(context_.get(), IsWithinLineBreak(last) ? last - 1 : last);
    const int result = Run(program_->quick.get(), kQuickSteps, from);
    return result == PCRE2_ERROR_MATCHLIMIT ? Run(Careful(), kMostSteps, from) : result;
  }

  int Run(pcre2_code* code, uint32_t steps, size_t from) {
    pcre2_set_match_limit(context_.get(), steps);
    const auto run = [&] {
      return pcre2_match(code, Units(text_), text_.size(), from, 0, data_.get(), context_.get());
    };
    const int result = run();
    if (result != PCRE2_ERROR_JIT_STACKLIMIT || stack_) return result;
    stack_.reset(pcre2_jit_stack_create(kFirstStack, kMostStack, nullptr));
    pcre2_jit_stack_assign(context_.get(), nullptr, stack_.get());
    return run();
  }

  static constexpr size_t kLongestStride = size_t{64} << 20;

  const std::string expression_;
  const uint32_t options_;
  bool splitsLineBreaks_ = false;
  Program general_, ascii_;
  Program* program_ = &general_;
  std::optional<TRegExprLandmarks> landmarks_;
  JitStack stack_;
  MatchContext context_;
  MatchData data_;
  std::string_view text_;
  size_t stride_ = size_t{64} << 10;
  size_t countedTo_ = 0, countedCharacters_ = 0;
};

TRegExpr::TRegExpr(std::string_view expression, TRegExprModifiers modifiers)
    : engine_(std::make_unique<Engine>(expression, modifiers)) {}
TRegExpr::~TRegExpr() = default;

void TRegExpr::SetStopped(std::function<bool()> stopped, Clock* clock) {
  engine_->stopped = std::move(stopped);
  engine_->clock = clock;
}
bool TRegExpr::Exec(std::string_view text, size_t from) { return engine_->Exec(text, from); }
bool TRegExpr::ExecPos(size_t from) { return engine_->ExecPos(from); }
bool TRegExpr::ExecNext() { return engine_->ExecNext(); }
size_t TRegExpr::MatchStart() const { return engine_->Start(); }
size_t TRegExpr::MatchEnd() const { return engine_->End(); }
std::string_view TRegExpr::Match() const {
  return engine_->Text().substr(MatchStart(), MatchEnd() - MatchStart());
}
size_t TRegExpr::MatchPos() { return engine_->CharactersBeforeMatch() + 1; }
size_t TRegExpr::NextStart() const { return engine_->NextStart(); }
