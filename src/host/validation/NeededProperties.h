#pragma once

#include <string_view>

/// Properties without which an action has nothing to do, though its own Validate lets it pass: one of them
/// must hold something. One that is no property is a script.
struct NeededProperties {
  std::string_view typeId;
  std::string_view first, other = {};
};

inline constexpr NeededProperties kNeededProperties[] = {
    {"CLOSEPROCESS", "ProcessID"},
    {"HIFCOMREG", "CLSID", "ProgID"},
    {"LISTITERATOR", "ListOfItems"},
    {"LOADVARFROMINI", "Variables"},
    {"LOGVARIABLEVALS", "VariablesToLog"},
    {"SAVEVARTOINI", "Variables"},
    {"SCRIPTACTION", "OnExecute"},
    {"TEXTFIND", "SearchString"},
    {"TEXTFIND", "SourcePath", "VekVariable"},
    {"VEKREADREG", "VekVariable"},
};
