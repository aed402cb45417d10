#include "pages/VekTouchFilesDateEditor.h"

#include "coreapi/Vekservices.h"

namespace {

constexpr size_t kDateLength = 10;  // of "2007-03-05T10:00:00"

}  // namespace

TTouchFileEditForm::TTouchFileEditForm()
    : TActionFrame("Touch Files"),
      date_(Edit("dtpDate").Caption("Date")),
      time_(Edit("dtpTime").Caption("Time")) {
  CheckBox("chkTouchDate", "Touch Date", "TouchDate");
  CheckBox("chkTouchTime", "Touch Time", "TouchTime");
  CheckBox("chkTouchReadOnly", "Touch Read Only Files", "TouchReadOnly");
}

void TTouchFileEditForm::ReadActionData(TVekAction& action) {
  TActionFrame::ReadActionData(action);
  const std::string text = ToIso8601(Edited(action).DateTime);
  date_.SetText(text.substr(0, kDateLength));
  time_.SetText(text.substr(kDateLength + 1));
}

void TTouchFileEditForm::WriteActionData(TVekAction& action) {
  const std::string text = date_.Text() + 'T' + time_.Text();
  const auto dateTime = ParseIso8601(text);
  if (!dateTime) throw EVekError("\"" + text + "\" is not a date and time");
  TActionFrame::WriteActionData(action);
  Edited(action).DateTime = *dateTime;
}

std::string TTouchFilesDateEditor::GetValue() const {
  return static_cast<const TTouchFilesAction&>(Action()).ShownDateTime();
}

bool TTouchFilesDateEditor::Edit() {
  IVekDesignApplicationServices* design = VekDesignApplicationServices();
  if (design == nullptr) return false;
  TTouchFileEditForm form;
  form.ReadActionData(Action());
  if (!design->ShowForm(form)) return false;
  form.WriteActionData(Action());
  return true;
}
