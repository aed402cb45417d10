#include "pages/VekTextFindFrame.h"

#include "pages/Vekfilters.h"

TTextFindFrame::TTextFindFrame() : TActionFrame("Text Find") {
  Heading("Search In");
  RadioButton("rbFile", "File", "UseVariable", false).OnChange([this] { EnableControls(); });
  ButtonEdit("txtSourcePath", "SourcePath").Hint("File to search").BrowsesForFile("Select File", kAllFiles);
  useVariable_ =
      &RadioButton("rbVariable", "Variable", "UseVariable", true).OnChange([this] { EnableControls(); });
  Edit("txtVariable", "VekVariable").Hint("Variable whose value is searched");
  Heading("Search For");
  Memo("memSearchString", "SearchString").Hint("Text or regular expression to find");
  matchRegExpr_ = &CheckBox("chkMatchRegExpr", "Regular Expression", "MatchRegExpr").OnChange([this] {
    EnableControls();
  });
  CheckBox("chkCaseSensitive", "Case Sensitive", "CaseSensitive");
  CheckBox("chkWholeWords", "Whole Words Only", "WholeWords");
  Heading("Result");
  RadioButton("rbFailOnLess", "Fail on Fewer Matches", "TextFindBehaviour", TTextFindBehaviour::tfFailOnLess);
  Edit("txtFailMatchCount", "FailMatchCount").Hint("Fewest matches for success");
  RadioButton("rbFailOnMore", "Fail on More Matches", "TextFindBehaviour", TTextFindBehaviour::tfFailOnMore);
  Edit("txtFailOnMoreMatchCount", "FailOnMoreMatchCount").Hint("Most matches for success");
  RadioButton("rbPutIntoVar", "Put Count into Variable", "TextFindBehaviour",
              TTextFindBehaviour::tfPutIntoVar);
  Edit("txtPutCountIntoVar", "PutCountIntoVar").Hint("Variable that receives the count");
}

void TTextFindFrame::ReadActionData(TVekAction& action) {
  TActionFrame::ReadActionData(action);
  EnableControls();
}

/// Only what has an effect can be used.
void TTextFindFrame::EnableControls() {
  FindControl("txtSourcePath")->SetEnabled(!useVariable_->Checked());
  FindControl("txtVariable")->SetEnabled(useVariable_->Checked());
  for (const char* name : {"chkCaseSensitive", "chkWholeWords"}) {
    FindControl(name)->SetEnabled(!matchRegExpr_->Checked());
  }
}
