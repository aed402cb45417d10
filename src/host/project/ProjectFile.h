#pragma once

#include <string>
#include <string_view>

#include "host/project/Project.h"

class Catalogue;
class IVekActionHost;
struct Platform;

/// Reads a project from the text of its file. `fileName` is how messages name the file. Raises EProjectFault
/// for the first fault; nothing has been executed then. With `faults` it goes on and collects them all; the
/// project is of no use where there are any. Safe on untrusted text: a document type is refused and depth is
/// bounded.
Project ReadProject(std::string_view text, std::string_view fileName, const Catalogue& catalogue,
                    IVekActionHost& host, std::vector<EProjectFault>* faults = nullptr);

/// The whole of a file; raises EVekError with the system's word for what went wrong.
std::string ReadTextOf(const Platform& platform, const std::string& path);

/// Reads the project of a file; raises and collects like these two.
Project LoadProject(const Platform& platform, const std::string& path, const Catalogue& catalogue,
                    IVekActionHost& host, std::vector<EProjectFault>* faults = nullptr);

/// The project as file text: every stored property of every action, so that reading it gives the same
/// project.
std::string WriteProject(const Project& project);

/// Assigns a property from its text as the command line gives it. Raises EProjectError without a place: an
/// unknown property (with the nearest name), a read-only one, a value that does not fit.
void AssignProperty(TCustomVekAction& action, std::string_view name, std::string_view text);

/// Adds one line to a list property (`PROP+=LINE`); raises like AssignProperty.
void AppendToListProperty(TCustomVekAction& action, std::string_view name, std::string_view line);

/// Attaches a script to an event of the action; raises EProjectError for an unknown event.
void AttachScript(TCustomVekAction& action, std::string_view eventName, std::string text);
