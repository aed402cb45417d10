#include "pages/VekTextReplaceFrame.h"

#include "pages/Vekfilters.h"

TfrmTextReplace::TfrmTextReplace() : TActionFrame("Text Replace") {
  const auto enable = [this] { EnableControls(); };
  Heading("File");
  ButtonEdit("txtFilename", "Filename").Hint("File to process").BrowsesForFile("Select File", kAllFiles);
  ButtonEdit("txtNewFileName", "NewFileName")
      .Hint("File for the result; blank to change the file itself")
      .BrowsesForFile("Select File", kAllFiles);
  CheckBox("chkReplaceVariables", "Replace Variables", "DoReplaceVariables");
  replaceText_ = &CheckBox("chkReplaceText", "Replace Text", "DoReplaceText").OnChange(enable);
  Memo("memSearchText", "SearchText").Hint("Text or regular expression to find");
  Memo("memReplaceText", "ReplaceText").Hint("Replacement");
  matchExpression_ =
      &CheckBox("chkRegularExpression", "Regular Expression", "MatchRegularExpression").OnChange(enable);
  CheckBox("chkCaseSensitive", "Case Sensitive", "CaseSensitive");
  CheckBox("chkWholeWords", "Whole Words Only", "WholeWordsOnly");
  Edit("txtRepeat", "DoRepeat").Hint("Most replacements; 0 for no limit");
  Heading("Result");
  failOnFew_ =
      &CheckBox("chkFailOnFew", "Fail on Few Replacements", "FailOnFewReplacements").OnChange(enable);
  Edit("txtFailMinimumCount", "FailMinimumCount").Hint("Fewest replacements for success");
}

void TfrmTextReplace::ReadActionData(TVekAction& action) {
  TActionFrame::ReadActionData(action);
  EnableControls();
}

/// A panel can be used while its check box is checked, and what is in it as far as it has an effect.
void TfrmTextReplace::EnableControls() {
  const bool replaces = replaceText_->Checked();
  for (const char* name : {"memSearchText", "memReplaceText", "chkRegularExpression", "txtRepeat"}) {
    FindControl(name)->SetEnabled(replaces);
  }
  for (const char* name : {"chkCaseSensitive", "chkWholeWords"}) {
    FindControl(name)->SetEnabled(replaces && !matchExpression_->Checked());
  }
  FindControl("txtFailMinimumCount")->SetEnabled(failOnFew_->Checked());
}
