#include "core/SubProject.h"
#include "core/ThreadSafe.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

using KelMediaLib::SubProject;
using KelMediaLib::ThreadSafe;

namespace {

// A part is always something else as well.
struct Part : SubProject {
  using SubProject::SubProject;
};

TEST(ThreadSafeTest, PartReachesTheOwnersLockUntilTheOwnerEnds) {
  boost::shared_ptr<ThreadSafe> owner = boost::make_shared<ThreadSafe>();
  Part part(owner);
  EXPECT_EQ(&owner->mutex(), &part.projectMutex().lock()->mutex());

  // The part holds its owner weakly: it doesn't keep the owner alive.
  owner.reset();
  EXPECT_TRUE(part.projectMutex().expired());
}

}  // namespace
