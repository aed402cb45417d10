#pragma once

/// Whether this test runs on Wine in place of Windows; each system has its own file.
bool RunsOnWine();

/// What Wine does otherwise than Windows, all of it: a test that needs one of these skips itself there. Each
/// is for what Windows does, checked wherever it can be.
namespace WineLimits {

/// Symbolic links are said to be made, and are not.
inline bool NoLinks() { return RunsOnWine(); }

/// Half a surrogate pair cannot be part of a name.
inline bool NoHalfPairsInNames() { return RunsOnWine(); }

/// The system's messages are worded in another way.
inline bool OwnErrorTexts() { return RunsOnWine(); }

/// Every file carries the archive attribute, and no folder is read-only.
inline bool FixedAttributes() { return RunsOnWine(); }

}  // namespace WineLimits
