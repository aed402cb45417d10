#include "base/Parameters.h"
#include "coreapi/Vekcommandline.h"
#include "fuzz/Fuzz.h"

namespace {

/// Takes one byte after the other; backslashes wait for what comes behind them.
class SlowSplitter {
 public:
  StringList Split(std::string_view text) {
    for (size_t i = 0; i < text.size(); ++i) {
      const char c = text[i];
      if (c == '\\') {
        ++backslashes_;
        inArgument_ = true;
      } else if (c == '"') {
        const bool isDoubled = i + 1 < text.size() && text[i + 1] == '"';
        i += TakeQuote(isDoubled) ? 1 : 0;
      } else {
        TakeOther(c);
      }
    }
    Flush(backslashes_);
    End();
    return arguments_;
  }

 private:
  /// Whether it takes the next quote too.
  bool TakeQuote(bool isDoubled) {
    const bool isPlain = backslashes_ % 2 == 1;
    Flush(backslashes_ / 2);
    inArgument_ = true;
    if (isPlain) {
      argument_ += '"';
    } else if (inQuotes_ && isDoubled) {
      argument_ += '"';
      return true;
    } else {
      inQuotes_ = !inQuotes_;
    }
    return false;
  }

  void TakeOther(char c) {
    Flush(backslashes_);
    if (!inQuotes_ && (c == ' ' || c == '\t')) return End();
    argument_ += c;
    inArgument_ = true;
  }

  void Flush(size_t backslashes) {
    argument_.append(backslashes, '\\');
    backslashes_ = 0;
  }

  void End() {
    if (inArgument_) arguments_.push_back(argument_);
    argument_.clear();
    inArgument_ = false;
  }

  StringList arguments_;
  std::string argument_;
  size_t backslashes_ = 0;
  bool inArgument_ = false, inQuotes_ = false;
};

std::string Shown(const StringList& arguments) {
  std::string text;
  for (const std::string& argument : arguments) text += '<' + argument + '>';
  return text;
}

bool StandsInQuotes(std::string_view text) {
  return text.size() > 1 && text.starts_with('"') && text.ends_with('"');
}

/// The first letter of a field says how the rest is added. Values that the builder leaves as they are may
/// mean anything; they are left out.
void CheckBuilder(const StringList& fields) {
  const auto builder = CreateCommandLineBuilder();
  StringList wanted;
  for (const std::string& field : fields) {
    const std::string value = field.substr(std::min<size_t>(field.size(), 1));
    const bool always = !field.starts_with('n');
    const bool hasBlank = value.find_first_of(" \t") != std::string::npos;
    if (StandsInQuotes(value)) continue;
    if (!always && !hasBlank && value.find('"') != std::string::npos) continue;
    const std::string switchText = field.starts_with('s') ? "/X:" : "";
    builder->AddArgument(switchText, value, always ? ArgumentQuoting::Always : ArgumentQuoting::WhenNeeded);
    if (always || !value.empty()) wanted.push_back(switchText + value);
  }
  RequireSame(Shown(SplitParameters(builder->CommandLineText())), Shown(wanted), "built and split");
}

}  // namespace

FuzzFormat TargetFormat() {
  return {.seeds = {"aC:\\a b\\\x1Fn10\x1FsC:\\\\", "na b\\\\\x1Fsay \\\"hi", "args \"say \"\"hi you\"\"\" b",
                    "a\\\\\\\"b c\" d\\ \"\" e\""},
          .words = Words("\"~\\~ ~\t~\\\"~\\\\\"~\"\"~\"\"\"~a~n~s~\n~\0~\xFF~\x1F"),
          .runs = 40'000};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text = InputText(data, size);
  RequireSame(Shown(SplitParameters(text)), Shown(SlowSplitter().Split(text)), "split");
  CheckBuilder(Fields(text, 0));
  return 0;
}
