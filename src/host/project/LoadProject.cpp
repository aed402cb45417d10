#include "coreapi/Vekerrors.h"
#include "host/expressions/Variables.h"
#include "host/project/ProjectFile.h"
#include "platform/Contents.h"
#include "platform/Environment.h"
#include "platform/ErrorTexts.h"
#include "platform/Folders.h"
#include "platform/Platform.h"

std::string ReadTextOf(const Platform& platform, const std::string& path) {
  std::string contents;
  const SysResult read = platform.folders->Exists(path) ? SysResult::Failure(Win32Error::Directory)
                                                        : platform.contents->ReadStream(path, contents);
  if (!read) throw EVekError(path + ": " + platform.errorTexts->Text(read.code));
  if (contents.size() > kMostText) throw EVekError(path + ": larger than " + std::string(kMostTextShown));
  return contents;
}

Project LoadProject(const Platform& platform, const std::string& path, const Catalogue& catalogue,
                    IVekActionHost& host, std::vector<EProjectFault>* faults) {
  Project project = ReadProject(ReadTextOf(platform, path), path, catalogue, host, faults);
  project.fileName = platform.environment->FullPath(path);
  return project;
}
