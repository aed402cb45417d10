#include "forms/Vekedits.h"

#include <algorithm>
#include <utility>

#include "coreapi/Vekerrors.h"
#include "coreapi/Vekutils.h"

void RaiseMisfit(const PropertyRow& row, std::string_view text) {
  throw EVekError("property " + std::string(row.name) + ": \"" + std::string(text) + "\" is not " +
                  DescribeExpectedText(row));
}

TCustomEdit::~TCustomEdit() = default;
TEdit::~TEdit() = default;
TMemo::~TMemo() = default;
TButtonEdit::~TButtonEdit() = default;
TComboBox::~TComboBox() = default;

void TCustomEdit::SetText(std::string_view text) { text_ = text, Changed(); }
void TCustomEdit::Enter(std::string_view text) {
  if (!Enabled()) return;
  text_ = text;
  ChangedByUser();
}

std::optional<PropertyValue> TCustomEdit::Parsed() const { return PropertyFromText(*Property(), text_); }
PropertyValue TCustomEdit::Value() const { return Parsed().value(); }
void TCustomEdit::SetValue(const PropertyValue& value) { SetText(PropertyToText(*Property(), value)); }
void TCustomEdit::CheckValue() const {
  if (Property() && !Parsed()) RaiseMisfit(*Property(), text_);
}

void TMemo::SetValue(const PropertyValue& value) {
  if (Property()->type != PropertyType::StringList) return TCustomEdit::SetValue(value);
  // Every entry ends its line, so that empty entries at the end come back.
  std::string text;
  for (const std::string& line : std::get<StringList>(value)) text.append(line).append("\r\n");
  SetText(text);
}

void TButtonEdit::ClickButton() {
  if (Enabled() && onButtonClick_) onButtonClick_();
}

TButtonEdit& TButtonEdit::OnButtonClick(std::function<void()> handler) {
  onButtonClick_ = std::move(handler);
  return *this;
}

TButtonEdit& TButtonEdit::BrowsesForFile(std::string_view title, std::string_view filter,
                                         std::string_view defaultExtension) {
  return OnButtonClick([this, title = std::string(title), filter = std::string(filter),
                        extension = std::string(defaultExtension)] {
    std::string fileName = Text();
    if (VekBrowseForFile(title, fileName, filter, extension)) Enter(fileName);
  });
}

TButtonEdit& TButtonEdit::BrowsesForFile(const FileDialog& dialog) {
  return BrowsesForFile(dialog.title, dialog.filter, dialog.defaultExtension);
}

TButtonEdit& TButtonEdit::BrowsesForDirectory(std::string_view title) {
  return OnButtonClick([this, title = std::string(title)] {
    std::string folder = Text();
    if (VekBrowseForDirectory(title, folder)) Enter(folder);
  });
}

TComboBox::TComboBox(TFrame& page, std::string_view name, const PropertyRow* property)
    : ControlOf(page, name, property) {
  if (!ChoosesOnly()) return;
  const auto values = property->enumType().values;
  items_.assign(values.begin(), values.end());
}

TComboBox& TComboBox::Items(StringList items) {
  if (ChoosesOnly() && items.size() != Property()->enumType().values.size()) {
    throw EVekError("the combo box " + Name() + " needs one caption for each value of " +
                    std::string(Property()->enumType().name));
  }
  items_ = std::move(items);
  Changed();
  return *this;
}

int32_t TComboBox::ItemIndex() const {
  const auto item = std::find(items_.begin(), items_.end(), Text());
  return item == items_.end() ? -1 : static_cast<int32_t>(item - items_.begin());
}

StringList TComboBox::Choices() const { return items_; }
void TComboBox::Choose(size_t index) { Enter(items_.at(index)); }

void TComboBox::CheckValue() const {
  if (ChoosesOnly() && ItemIndex() < 0) RaiseMisfit(*Property(), Text());
}

PropertyValue TComboBox::Value() const {
  if (ChoosesOnly()) return int64_t{ItemIndex()};
  return Text();
}

void TComboBox::SetValue(const PropertyValue& value) {
  if (!ChoosesOnly()) return SetText(std::get<std::string>(value));
  SetText(items_.at(static_cast<size_t>(std::get<int64_t>(value))));
}
