#include "pages/VekQuestionFrame.h"

TQuestionFrame::TQuestionFrame() : TActionFrame("Question") {
  Heading("Question");
  Memo("memQuestion", "PromptText").Hint("Question to ask");
  CheckBox("chkUseYesNo", "Use Yes and No", "UseYesAndNo");
  Heading("Answer");
  RadioButton("rbFailIfCancel", "Fail if Cancel or No", "AnswerAction", TAnswerAction::FailOnCancel);
  RadioButton("rbFailIfOK", "Fail if OK or Yes", "AnswerAction", TAnswerAction::FailOnOK);
  RadioButton("rbUseVar", "Store in Variable", "AnswerAction", TAnswerAction::ResultIntoVariable);
  ComboBox("cbVariables", "VekVariable").Hint("Variable that receives the answer");
}
