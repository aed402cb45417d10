#pragma once

class Clock;
class ComClasses;
class Contents;
class Disk;
class Entries;
class Environment;
class ErrorTexts;
class Finder;
class Folders;
class IniFiles;
class Locale;
class Modules;
class Processes;
class Registry;
class Sounds;
class ProcessWindows;
class Shell;

/// The operating system, one narrow interface per capability; none of them is ever null. In a copy any of
/// them can be exchanged, for a platform that fails on purpose.
struct Platform {
  Entries* entries;
  Folders* folders;
  Contents* contents;
  Finder* finder;
  Environment* environment;
  Clock* clock;
  Locale* locale;
  ErrorTexts* errorTexts;
  Modules* modules;
  IniFiles* iniFiles;
  Registry* registry;
  Processes* processes;
  Disk* disk;
  Sounds* sounds;
  Shell* shell;
  ProcessWindows* windows;
  ComClasses* comClasses;
};
