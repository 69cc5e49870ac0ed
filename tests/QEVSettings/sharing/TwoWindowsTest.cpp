// SPDX-License-Identifier: MIT
#include "RandomWalk.hpp"
#include "foundation/store/StoreFixture.hpp"

#include <cstdlib>

namespace QEVSettings {
namespace {

TEST(TwoWindowsTest, RandomWalkEndsWithWindowsAndStoresThatAgree) {
  const char* const only = std::getenv("QEV_WALK_SEED");
  const int first = only ? std::atoi(only) : 1;
  const int last = only ? first : foundation::runs(3, 200);
  for (int seed = first; seed <= last; ++seed) {
    RandomWalk walk(static_cast<unsigned>(seed));
    EXPECT_NO_THROW(walk.run());
    ASSERT_FALSE(HasFailure()) << "QEV_WALK_SEED=" << seed << " after\n" << walk.lastSteps();
  }
}

}  // namespace
}  // namespace QEVSettings
