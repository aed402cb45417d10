#include "coreapi/Vekcommandline.h"

#include <algorithm>
#include <deque>

namespace {

bool StandsInQuotes(std::string_view text) {
  return text.size() >= 2 && text.front() == '"' && text.back() == '"';
}

/// In quotes, as programs take them apart: backslashes count only before a quote, where each is doubled, and
/// a quote of the text's own gets one more.
std::string Quoted(std::string_view text) {
  std::string result = "\"";
  size_t backslashes = 0;
  for (const char c : text) {
    if (c == '"') result.append(backslashes + 1, '\\');
    backslashes = c == '\\' ? backslashes + 1 : 0;
    result += c;
  }
  return result.append(backslashes, '\\') + '"';
}

bool NeedsQuotes(std::string_view value, ArgumentQuoting quoting) {
  if (quoting == ArgumentQuoting::AsItStands || StandsInQuotes(value)) return false;
  return quoting == ArgumentQuoting::Always || value.find_first_of(" \t") != std::string_view::npos;
}

class Argument final : public IArgument {
 public:
  explicit Argument(std::string text) : text_(std::move(text)) {}
  const std::string& Text() const override { return text_; }

 private:
  std::string text_;
};

class CommandLineBuilder final : public ICommandLineBuilder {
 public:
  void Reset(int32_t kept) override {
    while (arguments_.size() > static_cast<size_t>(std::max(kept, 0))) arguments_.pop_back();
  }

  const IArgument& AddArgument(std::string_view switchText, std::string_view value,
                               ArgumentQuoting quoting) override {
    std::string text(switchText);
    text += NeedsQuotes(value, quoting) ? Quoted(value) : value;
    return arguments_.emplace_back(std::move(text));
  }

  std::string CommandLineText() const override {
    std::string text;
    for (const Argument& argument : arguments_) {
      if (!text.empty() && !argument.Text().empty()) text += ' ';
      text += argument.Text();
    }
    return text;
  }

 private:
  std::deque<Argument> arguments_;
};

}  // namespace

std::shared_ptr<ICommandLineBuilder> CreateCommandLineBuilder() {
  return std::make_shared<CommandLineBuilder>();
}
