#pragma once

#include "forms/Vekpropertyeditors.h"

/// The property editors that are one of the host's with other texts. Pages ask the same where they browse.

/// Of actions whose file specification may hold wildcards.
inline constexpr EditorClass kFileNameEditEx =
    EditorClassOf<TFileNameEdit>("TFileNameEditEx", {"Select File", "All Files(*.*)|*.*", "*.*"});

inline constexpr EditorClass kIniFileNameEdit = EditorClassOf<TFileNameEdit>(
    "TIniFileNameEdit", {"Select Ini File", "Configuration files(*.ini)|*.ini", "*.ini"});
inline constexpr EditorClass kIniVariableEditor = EditorClassOf<TVariableNameEditor>("TIniVariableEditor");

inline constexpr EditorClass kVariablesListEditor =
    EditorClassOf<TVariableNameEditor>("TVariablesListPropertyEditor");

inline constexpr EditorClass kRunProgEditor = EditorClassOf<TFileNameEdit>(
    "TRunProgEditor", {"Select Program File", "Program Files (*.exe)|*.exe|All Files (*.*)|*.*", ".exe"});
inline constexpr EditorClass kStartDirectoryEditor =
    EditorClassOf<TSelectDirectoryEditor>("TStartDirectoryEditor", {"Select Start Directory"});
