#include "iterators/VekListIteratorActoin.h"

namespace {

constexpr std::string_view kHidden[] = {"ItemIndex", "ItemCount"};

}  // namespace

const ActionClass TCustomVekListIterator::kClass{
    .inherited = &TVekBaseIterator::kClass,
    .className = "TCustomVekListIterator",
    .actionName = "List Iterator",
    .helpTopicID = 3140,
    .quickHelpFilename = "Plugins\\ListIterator.html",
    .hiddenProperties = kHidden,
};

void TCustomVekListIterator::BeforeFirstIteration() {
  SendMessage("Setting items...");
  try {
    if (!ExpandItems()) throw EIteratorException("Failed to expand list of items.");
    SendMessage("Found " + std::to_string(items_.size()) + " Items");
    SetIterationCount(ItemCount());
  } catch (const std::exception& error) {
    throw EIteratorException(std::string("Error while searching for items : ") + error.what());
  }
}

/// An item whose text has several lines is as many entries, and one without text is none.
bool TCustomVekListIterator::ExpandItems() {
  items_.clear();
  for (size_t i = 0; i < ListOfItems.size(); ++i) {
    std::string text;
    if (!TryExpandExpression("Item: " + std::to_string(i), ListOfItems[i], text, false)) return false;
    for (std::string& line : SplitLines(text)) items_.push_back(std::move(line));
  }
  return true;
}

Variant TCustomVekListIterator::GetCurrentValue() { return items_[static_cast<size_t>(ItemIndex()) - 1]; }
