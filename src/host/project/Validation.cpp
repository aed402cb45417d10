#include "host/project/Validation.h"

namespace {

class Collector final : public IVekActionValidationError {
 public:
  Collector(std::vector<ValidationProblem>& problems, std::string path, std::string type)
      : problems_(problems), path_(std::move(path)), type_(std::move(type)) {}

  void AddError(std::string_view propertyTitle, std::string_view message) override {
    problems_.push_back({path_, type_, std::string(propertyTitle), std::string(message)});
    reported_ = true;
  }
  bool Reported() const { return reported_; }

 private:
  std::vector<ValidationProblem>& problems_;
  std::string path_, type_;
  bool reported_ = false;
};

void ValidateBelow(const std::vector<ActionNode>& actions, const std::string& parentPath,
                   std::vector<ValidationProblem>& problems) {
  for (size_t i = 0; i < actions.size(); ++i) {
    const ActionNode& node = actions[i];
    if (!node.action->Enabled) continue;
    const std::string path = parentPath + '/' + std::to_string(i + 1);
    Collector collector(problems, path, node.typeId);
    if (!node.action->Validate(collector) && !collector.Reported()) {
      collector.AddError("", "The settings are not complete");
    }
    ValidateBelow(node.children, path, problems);
  }
}

}  // namespace

std::vector<ValidationProblem> ValidateActions(const std::vector<ActionNode>& actions) {
  std::vector<ValidationProblem> problems;
  ValidateBelow(actions, "", problems);
  return problems;
}
