#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "coreapi/Vekprojectobjects.h"
#include "host/project/Project.h"

class IVekActionHost;
class ProjectFileSet;

/// The file sets of the project that is being built, each evaluated when it is first used.
class FileSets final : public IVekProjectObjectAPI {
 public:
  explicit FileSets(IVekActionHost& host);
  ~FileSets() override;

  void Declare(const std::vector<FileSetDeclaration>& declarations);

  IVekProjectObject* FindObject(std::string_view name, std::string_view objectType) override;

  /// The file set that is being evaluated; null for none.
  const FileSetDeclaration* BeingRead() const { return beingRead_; }

 private:
  IVekActionHost& host_;
  const FileSetDeclaration* beingRead_ = nullptr;
  std::vector<std::unique_ptr<ProjectFileSet>> sets_;
};
