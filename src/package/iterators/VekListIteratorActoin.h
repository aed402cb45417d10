#pragma once

#include <cstdint>

#include "coreapi/Vekbaseiteratoraction.h"

/// "List Iterator": runs its children once for every line of a list, whose items are expanded when the loop
/// begins.
class TCustomVekListIterator : public TVekBaseIterator {
 public:
  static const ActionClass kClass;
  using TVekBaseIterator::TVekBaseIterator;

  StringList ListOfItems;

  /// How many lines the items have expanded to, and which one is current, from 1.
  int32_t ItemCount() const { return static_cast<int32_t>(items_.size()); }
  int32_t ItemIndex() const { return GetCurrentIteration(); }

 protected:
  void BeforeFirstIteration() override;
  Variant GetCurrentValue() override;

 private:
  bool ExpandItems();

  StringList items_;
};

class TVekListIterator final : public PublishedAction<TVekListIterator, TCustomVekListIterator> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekListIterator";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekListIterator::ListOfItems>("ListOfItems")
          .Means("The values, one a line; a variable that holds several lines is as many passes"),
      Published<&TCustomVekListIterator::ItemCount>("ItemCount").Means("How many passes there are"),
      Published<&TCustomVekListIterator::ItemIndex>("ItemIndex")
          .Means("The number of the present pass, from 1"),
  };
};
