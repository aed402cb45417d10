#include "pages/VekCloseProcessFrame.h"

TCloseProcessFrame::TCloseProcessFrame() : TActionFrame("Close Process") {
  Heading("Process");
  Edit("txtProcessID", "ProcessID").Hint("Process identifier");
  Heading("Main Window Receives");
  RadioButton("rbClose", "WM_CLOSE", "SendWMClose", true);
  RadioButton("rbQuit", "WM_QUIT", "SendWMClose", false);
  Heading("Time-out");
  timeout_ = &CheckBox("chkTimeout", "Terminate the Process After", "Timeout").OnChange([this] {
    limit_->SetEnabled(timeout_->Checked());
  });
  limit_ = &Edit("txtTimeoutLimit", "TimeoutLimit").Hint("Seconds");
}

void TCloseProcessFrame::ReadActionData(TVekAction& action) {
  TActionFrame::ReadActionData(action);
  limit_->SetEnabled(timeout_->Checked());
}
