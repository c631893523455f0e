#include "run_result.h"

#include <algorithm>

namespace zorbsim {

bool StepResult::passed() const
{
    return referencesLeaked == 0 &&
           std::all_of(expectations.begin(), expectations.end(),
                       [](const ExpectationResult& expectation) { return expectation.passed; });
}

int RunResult::passedSteps() const
{
    return static_cast<int>(std::count_if(steps.begin(), steps.end(), [](const StepResult& step) { return step.passed(); }));
}

int RunResult::failedSteps() const { return static_cast<int>(steps.size()) - passedSteps(); }

}  // namespace zorbsim
