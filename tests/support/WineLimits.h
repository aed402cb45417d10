#pragma once

/// Whether this test runs on Wine in place of Windows; each system has its own file.
bool RunsOnWine();

/// What Wine does otherwise than Windows, all of it: a test that needs one of these skips itself there. Each
/// is for what Windows does, checked wherever it can be.
namespace WineLimits {

/// Symbolic links are said to be made, and are not.
inline bool NoLinks() { return RunsOnWine(); }

/// Sections and keys of INI files differ in the case of letters beyond ASCII.
inline bool AsciiCaseInIniFiles() { return RunsOnWine(); }

/// Half a surrogate pair cannot be part of a name.
inline bool NoHalfPairsInNames() { return RunsOnWine(); }

/// The system's messages are worded in another way.
inline bool OwnErrorTexts() { return RunsOnWine(); }

/// A console program cannot be asked to end.
inline bool NoConsoleBreak() { return RunsOnWine(); }

/// Every file carries the archive attribute, and no folder is read-only.
inline bool FixedAttributes() { return RunsOnWine(); }

/// Copies and moves tell no progress, and cannot be cancelled on the way.
inline bool NoCopyProgress() { return RunsOnWine(); }

/// A name cannot be given other letters, nor one of two names of a file be moved over the other.
inline bool NoDeepTrees() { return RunsOnWine(); }
inline bool NoShellItems() { return RunsOnWine(); }
inline bool NoRenameWithinOneFile() { return RunsOnWine(); }

/// A read-only file is not moved to another volume.
inline bool NoReadOnlyMoveAcross() { return RunsOnWine(); }

}  // namespace WineLimits
