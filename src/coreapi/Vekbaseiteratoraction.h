#pragma once

#include "coreapi/Vekactionapi.h"

/// A loop that cannot go on; it ends the iterator with a failure.
class VEK_API EIteratorException : public EVekError {
 public:
  using EVekError::EVekError;
  ~EIteratorException() override;
};

/// Base of loop actions. Each Execute steps to the next pass, whose children the engine then runs before it
/// comes back; the first Execute begins the loop and the one that finds no further pass ends it.
class VEK_API TVekBaseIterator : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;
  ~TVekBaseIterator() override;

  /// The variable that holds the value of the current pass; empty for none.
  const std::string& LoopVariable() const { return loopVariable_; }
  virtual void SetLoopVariable(std::string_view value);

  /// The current pass, 1-based; 0 before the first one.
  int32_t GetCurrentIteration() const { return currentIteration_; }
  int32_t GetIterationCount() const { return iterationCount_; }

  /// The next pass is the first one again.
  void Reset();

  void ResetBuildStatus() override;
  void GetNextActionSource(bool failed, TVekNextAction& next) override;

 protected:
  bool Execute() final;

  /// Builds what is iterated and sets the count, which is 0 when it is called.
  virtual void BeforeFirstIteration();

  /// What the loop variable receives in this pass; called once per pass.
  virtual Variant GetCurrentValue() = 0;
  virtual void AfterEachIteration();  // not after a pass in which the loop was reset
  virtual void AfterLastIteration();
  virtual bool NoMoreIterations() const;

  void SetIterationCount(int32_t count) { iterationCount_ = count; }

  /// An iterator that assigns its variables itself gives the loop variable no value.
  bool assignsVariables = false;

 private:
  std::string loopVariable_;
  int32_t currentIteration_ = 0;
  int32_t iterationCount_ = 0;
  bool begun_ = false;
  bool inPass_ = false;
};

inline constexpr PropertyRow kVekIteratorProperties[] = {
    Published<&TVekBaseIterator::LoopVariable, &TVekBaseIterator::SetLoopVariable>("LoopVariable",
                                                                                   TextRole::Variable),
};
consteval std::span<const PropertyRow> BaseRows(const TVekBaseIterator*) { return kVekIteratorProperties; }
