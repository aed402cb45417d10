#pragma once

class Clock;
class Environment;
class ErrorTexts;
class Files;
class Finder;
class IniFiles;
class Modules;
class Processes;

/// The operating system, one narrow interface per capability. A copy with one of them exchanged is a
/// platform that fails on purpose.
struct Platform {
  Files& files;
  Finder& finder;
  Environment& environment;
  Clock& clock;
  ErrorTexts& errorTexts;
  Modules& modules;
  IniFiles& iniFiles;
  Processes& processes;
};
