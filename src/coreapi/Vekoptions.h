#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "coreapi/Veklumxml.h"
#include "vekcoreapi_export.h"

struct PageClass;
struct Platform;

/// The stored options of one object: a text per key.
class IVekOptionsReader {
 public:
  virtual ~IVekOptionsReader() = default;

  /// Empty when nothing is stored.
  virtual std::string ReadString(std::string_view key) const = 0;

  /// What the host has in its place when nothing is stored; empty when there is no such thing, or when an
  /// empty text is stored.
  virtual std::string SuggestedString(std::string_view key) const = 0;
};

class IVekOptionsWriter {
 public:
  virtual ~IVekOptionsWriter() = default;
  virtual void WriteString(std::string_view key, std::string_view value) = 0;
};

/// Options that hold for all projects of a user. The host loads an object when it is first asked for it, and
/// has it saved when its page left it modified.
class VEK_API TVekOptionsObject : public TLumXMLObject {
 public:
  ~TVekOptionsObject() override;

  virtual void LoadOptions(const IVekOptionsReader& reader);
  virtual void SaveOptions(IVekOptionsWriter& writer) const;

  bool Modified() const { return modified_; }

 protected:
  void SetModified() { modified_ = true; }

 private:
  bool modified_ = false;
};

/// A class of options as the host knows it: found by category and name, stored under the key.
struct OptionsClass {
  std::string_view className;
  std::string_view category;
  std::string_view name;
  std::string_view key;
  std::unique_ptr<TVekOptionsObject> (*create)(const Platform& platform);
  const PageClass* page;
};

/// The class of `Options` with the page that edits it.
template <class Options>
constexpr OptionsClass OptionsClassOf(const PageClass* page) {
  return {Options::kClassName,
          Options::kCategory,
          Options::kName,
          Options::kOptionKey,
          [](const Platform& platform) -> std::unique_ptr<TVekOptionsObject> {
            return std::make_unique<Options>(platform);
          },
          page};
}
