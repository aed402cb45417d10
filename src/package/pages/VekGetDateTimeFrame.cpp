#include "pages/VekGetDateTimeFrame.h"

TGetDateTimeFrame::TGetDateTimeFrame() : TActionFrame("Date/Time") {
  ComboBox("cbVariables", "VekVariable").Hint("Variable that receives the date and time");
  Edit("txtFormat", "DateTimeFormat").Hint("Format, such as yyyy-mm-dd hh:nn:ss");
  Heading("Source");
  RadioButton("rbNow", "Now", "DateTimeSource", TDateTimeSource::dsNow);
  RadioButton("rbFile", "Last Write to a File", "DateTimeSource", TDateTimeSource::dsFile);
  ButtonEdit("txtFileName", "FileName").Hint("File").BrowsesForFile("Select File", "All Files (*.*)|*.*");
  Heading("Options");
  CheckBox("chkUseUTC", "Use UTC", "UseUTC");
  Edit("txtOffsetDays", "OffsetDays").Hint("Days to add");
}
