#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "coreapi/Vekactionclass.h"
#include "coreapi/Vekvariant.h"
#include "vekcoreapi_export.h"

struct PageClass;    // of the forms package; the host passes it through
struct EditorClass;  // likewise
struct OptionsClass;

/// Makes action types, their property pages and their property editors known to the host.
class IVekActionServices {
 public:
  virtual ~IVekActionServices() = default;
  virtual void RegisterAction(std::string_view displayName, std::string_view category,
                              const ActionClass& actionClass, std::string_view typeId) = 0;
  virtual void RegisterPropertyPages(const ActionClass& actionClass,
                                     std::span<const PageClass* const> pages) = 0;

  /// An empty property name means every property of that type; the type is named as PropertyRow::TypeName
  /// does.
  virtual void RegisterPropertyEditor(std::string_view propertyType, const ActionClass& actionClass,
                                      const EditorClass& editor, std::string_view propertyName) = 0;
};

/// A method that scripts can call on the actions of a class.
using ScriptMethodHandler = Variant (*)(TCustomVekAction& action, std::span<const Variant> arguments);

class IVekScriptingServices {
 public:
  virtual ~IVekScriptingServices() = default;
  virtual void RegisterScriptConstant(std::string_view name, const Variant& value) = 0;
  virtual void RegisterScriptMethod(const ActionClass& actionClass, std::string_view name,
                                    std::string_view parameters, ScriptMethodHandler handler) = 0;
  virtual void RegisterScriptEnumType(const EnumType& type) = 0;

  /// The handler registered for the class or one it inherits from, or null.
  virtual ScriptMethodHandler FindScriptMethod(const ActionClass& actionClass, std::string_view name) = 0;
};

class IVekOptionsServices {
 public:
  virtual ~IVekOptionsServices() = default;
  virtual void RegisterOptionsPage(const OptionsClass& optionsClass, std::string_view bitmapName) = 0;

  /// The stored text of an option, or empty.
  virtual std::string ReadOption(std::string_view name, std::string_view key) = 0;
};

/// The user's answers to file and folder choosers. A dialog that is cancelled leaves the text alone.
/// [user-interface thread]
class IVekDialogServices {
 public:
  virtual ~IVekDialogServices() = default;
  virtual bool BrowseForFile(std::string_view title, std::string& fileName, std::string_view filter,
                             std::string_view defaultExtension) = 0;
  virtual bool BrowseForDirectory(std::string_view title, std::string& folder) = 0;
};

/// What a host with a designer knows of the project that is being edited. [user-interface thread]
class IVekDesignApplicationServices {
 public:
  virtual ~IVekDesignApplicationServices() = default;

  /// Adds the names of the defined variables, in the order in which a user is to see them.
  virtual void GetVariableNames(StringList& names) = 0;
};

/// The services of the one host of this process. A host installs its own before it loads a package and
/// takes them away when the last package is gone.
struct VekHostServices {
  IVekActionServices& actions;
  IVekScriptingServices& scripting;
  IVekOptionsServices& options;
  IVekDialogServices& dialogs;
  IVekDesignApplicationServices* design = nullptr;  // null: the host has no designer
};

VEK_API void InstallVekServices(const VekHostServices* services);

/// These raise EVekError while no host is installed.
VEK_API IVekActionServices& VekActionServices();
VEK_API IVekScriptingServices& VekScriptingServices();
VEK_API IVekOptionsServices& VekOptionsServices();
VEK_API IVekDialogServices& VekDialogServices();

/// Null where the host has no designer.
VEK_API IVekDesignApplicationServices* VekDesignApplicationServices();
