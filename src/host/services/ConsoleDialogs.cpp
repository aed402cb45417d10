#include "host/services/ConsoleDialogs.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "host/engine/BuildContext.h"
#include "host/log/DisplayText.h"
#include "host/project/Quoted.h"
#include "platform/Entries.h"
#include "platform/Folders.h"
#include "platform/Platform.h"

namespace {

/// "Question [default]", a long default cut.
std::string Offering(std::string_view question, std::string_view offered) {
  constexpr size_t kMostColumns = 60;
  if (offered.empty()) return std::string(question);
  std::string shown = DisplayLine(offered);
  if (WrapColumns(shown, kMostColumns).size() > 1) shown = FitColumns(shown, kMostColumns);
  return std::string(question).append(question.empty() ? "[" : " [").append(shown).append("]");
}

/// The choice of that text, or the only one that begins with it, in any case.
std::optional<size_t> FindChoice(const StringList& choices, std::string_view answer) {
  const std::string wanted = UpCase(answer);
  std::optional<size_t> found;
  bool ambiguous = false;
  for (size_t i = 0; i < choices.size(); ++i) {
    const std::string choice = UpCase(choices[i]);
    if (choice == wanted) return i;
    if (!choice.starts_with(wanted)) continue;
    ambiguous = found.has_value();
    if (!found) found = i;
  }
  return ambiguous ? std::nullopt : found;
}

/// The number of the choice, from 1: the number itself, or as above.
std::optional<int32_t> FindNumber(const StringList& choices, std::string_view answer) {
  int32_t number = 0;
  const auto [stop, error] = std::from_chars(answer.data(), answer.data() + answer.size(), number);
  const bool isNumber = error == std::errc() && stop == answer.data() + answer.size();
  if (isNumber && number >= 1 && static_cast<size_t>(number) <= choices.size()) return number;
  const auto found = FindChoice(choices, answer);
  return found ? std::optional(static_cast<int32_t>(*found + 1)) : std::nullopt;
}

}  // namespace

void ConsoleDialogs::SetBuild(BuildContext* build) {
  if (build_) build_->Stop().OnTerminate({});
  build_ = build;
  if (build_) build_->Stop().OnTerminate([this] { prompt_.Stop(); });
}

void ConsoleDialogs::ShowMessage(std::string_view text) {
  if (build_) return build_->ReportError(text);
  console_.StandardError().Write("vekrun: " + std::string(text) + '\n');
}

bool ConsoleDialogs::MayShow() {
  if (!build_) return false;
  if (build_->IsUnattended()) {
    build_->ReportError("Contract breach: a dialog while unattended");
    return false;
  }
  if (!build_->InSynchronize()) build_->ReportError("Contract breach: user interface outside Synchronize");
  // In this order no stop is lost: one that comes after the look ends the wait.
  prompt_.Reset();
  return !build_->StopSignalled();
}

bool ConsoleDialogs::BrowseForFile(std::string_view title, std::string& fileName, std::string_view /*filter*/,
                                   std::string_view /*defaultExtension*/, TMustExist mustExist) {
  return AskForPath(title, fileName, [this, mustExist](const std::string& path) {
    const bool fits = mustExist == TMustExist::No || build_->GetPlatform().entries->FileExists(path);
    return fits ? "" : "There is no file " + Quoted(path) + ".";
  });
}

bool ConsoleDialogs::BrowseForDirectory(std::string_view title, std::string& folder, TMustExist mustExist) {
  return AskForPath(title, folder, [this, mustExist](const std::string& path) {
    const bool fits = mustExist == TMustExist::No || build_->GetPlatform().folders->Exists(path);
    return fits ? "" : "There is no folder " + Quoted(path) + ".";
  });
}

bool ConsoleDialogs::AskForPath(std::string_view title, std::string& path, const ConsolePrompt::Take& check) {
  if (!MayShow()) return false;
  return prompt_.Ask(build_->Masked(Offering(title, path)), Echo::On, [&](const std::string& answer) {
    const std::string& chosen = answer.empty() ? path : answer;
    std::string complaint = chosen.empty() ? "A name is needed." : check(chosen);
    if (complaint.empty()) path = chosen;
    return complaint;
  });
}

int32_t ConsoleDialogs::MessageDialog(std::string_view text, std::string_view caption, uint32_t style) {
  const bool yesNo = (style & MessageBoxStyle::YesNo) != 0;
  const StringList buttons = yesNo ? StringList{"Yes", "No"} : StringList{"OK", "Cancel"};
  constexpr int32_t kYesNoAnswers[] = {MessageBoxAnswer::Yes, MessageBoxAnswer::No};
  constexpr int32_t kOkCancelAnswers[] = {MessageBoxAnswer::Ok, MessageBoxAnswer::Cancel};
  const size_t offered = (style & MessageBoxStyle::SecondIsDefault) != 0 ? 1 : 0;
  size_t pressed = 1;
  if (MayShow()) {
    prompt_.Show(build_->Masked(text));
    const std::string question = std::string(caption) + ' ' + JoinLines(buttons, "/");
    prompt_.Ask(Offering(question, buttons[offered]), Echo::On, [&](const std::string& answer) {
      const std::string_view wanted = Trim(answer);
      const auto found = wanted.empty() ? offered : FindChoice(buttons, wanted);
      if (!found) return "The answer is " + JoinLines(buttons, " or ") + '.';
      pressed = *found;
      return std::string();
    });
  }
  return yesNo ? kYesNoAnswers[pressed] : kOkCancelAnswers[pressed];
}

bool ConsoleDialogs::PromptForText(const TTextPrompt& prompt, std::string& answer) {
  if (!MayShow()) return false;
  if (!Trim(prompt.title).empty()) prompt_.Show(build_->Masked(prompt.title));
  const bool hides = prompt.secret && !answer.empty();
  const std::string question = build_->Masked(Offering(prompt.text, hides ? kSecretText : answer));
  return prompt_.Ask(question, prompt.secret ? Echo::Off : Echo::On, [&](const std::string& typed) {
    const std::string& text = typed.empty() ? answer : typed;
    std::string complaint = prompt.complaint ? prompt.complaint(text) : std::string();
    if (complaint.empty()) answer = std::string(text);
    return complaint;
  });
}

bool ConsoleDialogs::ChooseFromList(std::string_view text, const StringList& choices, int32_t& number) {
  if (!MayShow()) return false;
  const bool hasDefault = number >= 1 && static_cast<size_t>(number) <= choices.size();
  prompt_.Show(build_->Masked(text));
  for (size_t i = 0; i < choices.size(); ++i) {
    const bool offered = hasDefault && i + 1 == static_cast<size_t>(number);
    prompt_.Show(build_->Masked(choices[i]), (offered ? "* " : "  ") + std::to_string(i + 1) + ". ");
  }
  const std::string question = Offering("Answer", hasDefault ? std::to_string(number) : "");
  return prompt_.Ask(question, Echo::On, [&](const std::string& answer) -> std::string {
    const std::string_view wanted = Trim(answer);
    if (wanted.empty()) return hasDefault ? "" : "An answer is needed.";
    const auto found = FindNumber(choices, wanted);
    if (!found) {
      return "The answer is a number from 1 to " + std::to_string(choices.size()) +
             ", or how one of the answers begins.";
    }
    number = *found;
    return {};
  });
}
