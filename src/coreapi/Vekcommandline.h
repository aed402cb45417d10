#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "vekcoreapi_export.h"

/// How an argument's value is put into the command line.
enum class ArgumentQuoting {
  AsItStands = 0,
  WhenNeeded = 2,  // in quotes when it holds a blank
  Always = 4,
};

/// One argument of a command line.
class IArgument {
 public:
  virtual ~IArgument() = default;
  virtual const std::string& Text() const = 0;  // as it stands in the command line
};

/// Builds the parameters of a program: arguments joined with single blanks. Quoted values are written so that
/// the program finds them as they were; one that stands in quotes already is left alone.
class ICommandLineBuilder {
 public:
  virtual ~ICommandLineBuilder() = default;

  /// Drops all arguments but the first `kept`.
  virtual void Reset(int32_t kept) = 0;

  /// Appends a switch with its value joined to it; either may be empty. The switch is taken as it stands.
  /// What is answered lives until the builder is reset.
  virtual const IArgument& AddArgument(std::string_view switchText, std::string_view value,
                                       ArgumentQuoting quoting) = 0;

  virtual std::string CommandLineText() const = 0;
};

VEK_API std::shared_ptr<ICommandLineBuilder> CreateCommandLineBuilder();
