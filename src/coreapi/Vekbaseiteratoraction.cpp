#include "coreapi/Vekbaseiteratoraction.h"

namespace {

constexpr std::string_view kAliases[] = {"[Iterator]", "LoopVariable=Loop Variable"};
constexpr std::string_view kHelp[] = {"LoopVariable=Variable that receives the value of each pass"};

}  // namespace

const ActionClass TVekBaseIterator::kClass{.inherited = &TVekAction::kClass,
                                           .className = "TVekBaseIterator",
                                           .aliases = kAliases,
                                           .help = kHelp,
                                           .properties = kVekIteratorProperties,
                                           .raises = true};

EIteratorException::~EIteratorException() = default;
TVekBaseIterator::~TVekBaseIterator() = default;

void TVekBaseIterator::SetLoopVariable(std::string_view value) { loopVariable_ = value; }

void TVekBaseIterator::Reset() {
  begun_ = inPass_ = false;
  currentIteration_ = 0;
}

void TVekBaseIterator::ResetBuildStatus() {
  TVekAction::ResetBuildStatus();
  Reset();
}

void TVekBaseIterator::GetNextActionSource(bool /*failed*/, TVekNextAction& next) {
  next = inPass_ ? TVekNextAction::naChildren : TVekNextAction::naNextSibling;
}

bool TVekBaseIterator::Execute() {
  if (begun_) {
    AfterEachIteration();
  } else {
    Reset();
    iterationCount_ = 0;
    BeforeFirstIteration();
    begun_ = true;
  }
  inPass_ = !StopSignalled() && !NoMoreIterations();
  if (inPass_) {
    ++currentIteration_;
    const Variant value = GetCurrentValue();
    if (!assignsVariables && !loopVariable_.empty()) SetVariable(loopVariable_, value);
  } else {
    begun_ = false;
    AfterLastIteration();
  }
  return true;
}

void TVekBaseIterator::BeforeFirstIteration() {}
void TVekBaseIterator::AfterEachIteration() {}
void TVekBaseIterator::AfterLastIteration() {}
bool TVekBaseIterator::NoMoreIterations() const { return currentIteration_ >= iterationCount_; }
