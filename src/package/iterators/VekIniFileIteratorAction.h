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
      Published<&TCustomIniFileIterator::IniFilename>("IniFilename", TextRole::File)
          .Means("The ini file to read"),
      Published<&TCustomIniFileIterator::IteratorMode>("IteratorMode")
          .Means("Go through the sections of the file, or through the entries of one section"),
      Published<&TCustomIniFileIterator::SectionsVar>("SectionsVar", TextRole::Variable)
          .Means("The variable that receives the name of each section"),
      Published<&TCustomIniFileIterator::SectionName>("SectionName")
          .Means("The section whose entries are gone through"),
      Published<&TCustomIniFileIterator::NameVariable>("NameVariable", TextRole::Variable)
          .Means("The variable that receives the name of each entry; blank for none"),
      Published<&TCustomIniFileIterator::ValueVariable>("ValueVariable", TextRole::Variable)
          .Means("The variable that receives the value of each entry; blank for none"),
      Published<&TVekBaseIterator::GetIterationCount>("ItemCount").Means("How many passes there are"),
      Published<&TVekBaseIterator::GetCurrentIteration>("ItemIndex")
          .Means("The number of the present pass, from 1"),
      Published<&TVekBaseIterator::LoopVariable, &TVekBaseIterator::SetLoopVariable>("VekVariable",
                                                                                     TextRole::Variable)
          .NotStored()
          .Means("LoopVariable by another name; this loop does not use it"),
  };
};
