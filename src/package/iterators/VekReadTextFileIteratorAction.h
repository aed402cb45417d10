#pragma once

#include <string>
#include <string_view>

#include "coreapi/Vekbaseiteratoraction.h"

/// "File Contents Iterator": runs its children once for every line of a text file.
class TCustomReadTextFileIterator : public TVekBaseIterator {
 public:
  static const ActionClass kClass;
  using TVekBaseIterator::TVekBaseIterator;

  WideString VariableName() const { return WideString(LoopVariable()); }
  void SetVariableName(const WideString& value) { SetLoopVariable(value); }
  WideString TextFileName;
  int32_t LineCount() const { return GetIterationCount(); }
  int32_t LineIndex() const { return GetCurrentIteration(); }

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  void BeforeFirstIteration() override;
  Variant GetCurrentValue() override;

 private:
  void ReadFile(const std::string& path);

  std::string contents_;
  std::string_view rest_;  // the lines of the passes to come
};

class TReadTextFileIterator final
    : public PublishedAction<TReadTextFileIterator, TCustomReadTextFileIterator> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TReadTextFileIterator";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomReadTextFileIterator::VariableName, &TCustomReadTextFileIterator::SetVariableName>(
          "VariableName", TextRole::Variable)
          .NotStored()
          .Means("LoopVariable by another name"),
      Published<&TCustomReadTextFileIterator::TextFileName>("TextFileName", TextRole::File)
          .Means("The text file to read"),
      Published<&TCustomReadTextFileIterator::LineCount>("LineCount").Means("How many lines the file has"),
      Published<&TCustomReadTextFileIterator::LineIndex>("LineIndex")
          .Means("The number of the present line, from 1"),
  };
};
