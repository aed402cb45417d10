#include "pages/VekMultiQuestionFrame.h"

TFrameMultiQuestion::TFrameMultiQuestion() : TActionFrame("Multi Question") {
  Heading("Question");
  Memo("memQuestion", "PromptText").Hint("Question to ask");
  Heading("Answers");
  Memo("memAnswers", "Answers").Hint("Answers to choose from, one a line");
  Edit("txtDefault", "DefaultAnswer").Hint("Number of the answer that is offered; 0 for none");
  Heading("Result");
  ComboBox("cbVariables", "VekVariable").Hint("Variable that receives the answer");
  CheckBox("chkNumber", "Store the Number of the Answer", "ResultIsNumber");
  CheckBox("chkFailOnCancel", "Fail on Cancel", "FailOnCancel");
}
