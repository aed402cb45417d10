#pragma once

#include "forms/Vekpluginapi.h"

/// Base of the pages of the actions that compute a file's checksum.
template <class Action>
class TFileChecksumFrame : public TActionFrame<Action> {
 protected:
  template <class Demand>
  using Property = PropertyOf<Action, std::type_identity_t<Demand>>;

  /// The kind's name, and what it is called where two are compared.
  TFileChecksumFrame(const std::string& name, const std::string& compared, Property<TCheckBox> failIfDiff,
                     Property<TEdit> compareTo)
      : TActionFrame<Action>("File " + name) {
    this->Heading("File");
    File("txtFileName", "FileName", "File to compute the " + name + " of");
    this->Edit("txtVariable", "VekVariable").Hint("Variable that receives the " + name);
    this->Heading("Compare");
    this->CheckBox("chkFailIfDiffToFile", "Fail if Different to File", "FailIfDiffToFile");
    File("txtCompareToFile", "CompareToFile", "File to compare with");
    this->CheckBox("chkFailIfDiffTo" + compared, "Fail if Different to " + compared, failIfDiff);
    this->Edit("txtCompareTo" + compared, compareTo).Hint(compared + " to compare with");
  }

 private:
  void File(std::string_view control, Property<TButtonEdit> property, const std::string& hint) {
    this->ButtonEdit(control, property).Hint(hint).BrowsesForFile("Select File", "All Files|*.*");
  }
};
