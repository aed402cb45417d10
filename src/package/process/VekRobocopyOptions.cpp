#include "process/VekRobocopyOptions.h"

#include "coreapi/Vekservices.h"

namespace {

constexpr std::string_view kLocation = "Location";

}  // namespace

void TVekRobocopyOptions::SetRobocopyPath(std::string_view value) {
  if (value == robocopyPath_) return;
  robocopyPath_ = value;
  SetModified();
}

void TVekRobocopyOptions::LoadOptions(const IVekOptionsReader& reader) {
  TVekOptionsObject::LoadOptions(reader);
  robocopyPath_ = reader.ReadString(kLocation);
  if (robocopyPath_.empty()) robocopyPath_ = TryToFindRobocopyPath();
  if (robocopyPath_.empty()) robocopyPath_ = reader.SuggestedString(kLocation);
}

void TVekRobocopyOptions::SaveOptions(IVekOptionsWriter& writer) const {
  TVekOptionsObject::SaveOptions(writer);
  writer.WriteString(kLocation, robocopyPath_);
}

std::string TVekRobocopyOptions::TryToFindRobocopyPath() const { return {}; }

std::string StoredRobocopyPath() {
  const auto* options = dynamic_cast<const IVekRobocopyOptions*>(
      VekOptionsServices().FindOptions(TVekRobocopyOptions::kCategory, TVekRobocopyOptions::kName));
  return options ? options->RobocopyPath() : std::string();
}
