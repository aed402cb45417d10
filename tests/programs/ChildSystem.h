#pragma once

#include <string>
#include <vector>

/// Has output as written, without translation of line ends, and answers the arguments as UTF-8 without the
/// program's name.
std::vector<std::string> StartChild(int argc, char** argv);

/// Has a polite request to end do nothing.
void IgnoreTermination();

/// Has it be noted instead; whether there was one.
void NoteTermination();
bool TerminationNoted();

/// Starts this program once more, with output that goes where its own goes.
void StartSelf(const std::vector<std::string>& arguments);

/// The number by which the system knows this process.
unsigned long OwnNumber();
