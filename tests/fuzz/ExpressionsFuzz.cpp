#include "fuzz/Fuzz.h"
#include "host/ScriptTesting.h"
#include "host/expressions/ExpressionEnd.h"
#include "host/expressions/Expressions.h"

namespace {

/// A script's value is its source in brackets.
class Source final : public ExpressionSource {
 public:
  std::optional<std::string> VariableText(std::string_view name) override {
    if (SameText(name, "A")) return "%A%$(1)%%";
    return std::nullopt;
  }
  Variant EvaluateScript(std::string_view source) override { return '[' + std::string(source) + ']'; }
};

std::string Escaped(std::string_view text) { return ReplaceAll(ReplaceAll(text, "%", "%%"), "$(", "$$("); }

void CheckExpansion(std::string_view text) {
  Source source;
  RequireSame(ExpandText(Escaped(text), source), text, "escaped text");
  try {
    ExpandText(text, source);
  } catch (const EVekExpressionError& error) {
    Require(std::string_view(error.what()).size() < 400, "a message without measure");
  }
}

class Scripts {
 public:
  /// Whether the engine takes the text as an expression, by itself as well as in parentheses. It runs.
  bool Takes(const std::string& text) { return Compiles(text) && Compiles("(\n" + text + "\n)"); }

 private:
  static constexpr size_t kMemory = size_t{4} << 20;

  bool Compiles(const std::string& text) {
    environment_.variables = Variables();
    environment_.variables.Set("a", int64_t{3});
    environment_.log.clear();
    environment_.pollsLeft = 2;
    try {
      VariantToText(engine_->Evaluate(text));
      return true;
    } catch (const EScriptError& error) {
      const std::string_view message = error.what();
      return message.find("SyntaxError") == message.npos && environment_.pollsLeft != 0 &&
             message.find("memory") == message.npos;
    }
  }

  FakeEnvironment environment_;
  std::unique_ptr<ScriptEngine> engine_ = CreateScriptEngine(environment_, kMemory);
};

/// The end that is found leaves what the engine takes in one piece.
void CheckEnd(const std::string& text) {
  static Scripts scripts;
  const auto end = FindExpressionEnd(text, 0);
  if (end) Require(*end < text.size() && text[*end] == ')', "an end that is none");
  if (!scripts.Takes(text)) return;
  const auto behind = FindExpressionEnd(text + "\n)", 0);
  Require(behind == text.size() + 1, "the expression is cut at " + std::to_string(behind.value_or(0)));
}

}  // namespace

FuzzFormat TargetFormat() {
  return {
      .seeds = {"100% %A% $(f(1)) %% $$(", "f(')', \")\")", "/[/)]\\/\\)/.test(a) / 2",
                "(a) / 2 + i++ / ')' / 2", "typeof /\\)/ // )", "{a: ')'}", "a[0] / 2 /* ) */",
                "'\\\r\n)' + x.return / 2", "Vek.Log(a + ')')", "function (x) { return /\\)/; }"},
      .words = Words("%~$~(~)~'~\"~/~\\~//~/*~*/~[~]~{~}~%A%~$(~++~--~+~-~a~1~return ~typeof ~void ~in ~"
                     " instanceof ~new ~function(){~x.~/\\)/~')'~\n~\r\n~\r~\xE2\x80\xA8~\xC3\xB6~\xFF~"
                     "\xC2\xA0~\u2003~\u3000~\u1680~\u180E~\u200B~\uFEFF~=~,~?~:~;~!~0~.5~e~\\u0029~<!--~-->~"
                     "Vek.Log(~Action.~=>~`~a.b~delete ~/a/g~&&~|~this~null"),
      .runs = 6'000};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(InputText(data, size));
  CheckExpansion(text);
  CheckEnd(text);
  return 0;
}
