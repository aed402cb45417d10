#pragma once

#include <cstdint>
#include <string>

#include "coreapi/Vekbaseiteratoraction.h"

struct SysResult;

enum class TIniIteratorMode { iiSections, iiValues };
template <>
inline constexpr auto kEnumNames<TIniIteratorMode> = Names("TIniIteratorMode", "iiSections", "iiValues");

/// "Ini File Iterator": runs its children once for every section of an INI file, or for every entry of one
/// section, and assigns the variables of that mode itself.
class TCustomIniFileIterator : public TVekBaseIterator {
 public:
  static const ActionClass kClass;
  explicit TCustomIniFileIterator(IVekActionHost& host);

  std::string IniFilename;
  TIniIteratorMode IteratorMode = TIniIteratorMode::iiSections;
  std::string SectionsVar;    // iiSections: receives the section's name
  std::string SectionName;    // iiValues: the section
  std::string NameVariable;   // iiValues: receives the entry's name
  std::string ValueVariable;  // iiValues: receives the entry's value

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  void BeforeFirstIteration() override;
  Variant GetCurrentValue() override;

 private:
  void CheckVariables() const;
  bool Populate(const std::string& path);
  void Check(const SysResult& result) const;

  StringList items_;  // names of sections, or lines "name=value"
};

class TIniFileIterator final : public PublishedAction<TIniFileIterator, TCustomIniFileIterator> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TIniFileIterator";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomIniFileIterator::IniFilename>("IniFilename", TextRole::File),
      Published<&TCustomIniFileIterator::IteratorMode>("IteratorMode"),
      Published<&TCustomIniFileIterator::SectionsVar>("SectionsVar", TextRole::Variable),
      Published<&TCustomIniFileIterator::SectionName>("SectionName"),
      Published<&TCustomIniFileIterator::NameVariable>("NameVariable", TextRole::Variable),
      Published<&TCustomIniFileIterator::ValueVariable>("ValueVariable", TextRole::Variable),
      Published<&TVekBaseIterator::GetIterationCount>("ItemCount"),
      Published<&TVekBaseIterator::GetCurrentIteration>("ItemIndex"),
      Published<&TVekBaseIterator::LoopVariable, &TVekBaseIterator::SetLoopVariable>("VekVariable",
                                                                                     TextRole::Variable)
          .NotStored(),
  };
};
