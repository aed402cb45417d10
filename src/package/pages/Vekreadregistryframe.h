#pragma once

#include "forms/Vekpluginapi.h"
#include "textini/Vekregaction.h"

/// The page of reading, setting and deleting a value of the registry; each of the three shows what it needs.
class TReadRegistryFrame final : public TActionFrame<TCustomRegAction> {
 public:
  static constexpr std::string_view kClassName = "TReadRegistryFrame";
  TReadRegistryFrame();
  void InitPage(TVekAction& action) override;
  void ReadActionData(TVekAction& action) override;
  void WriteActionData(TVekAction& action) override;

 private:
  TComboBox* root_;
  TComboBox* type_;
  TEdit* value_;
  TCheckBox* allowCreate_;
  TComboBox* variable_;
};
