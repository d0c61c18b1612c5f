#include "core/SubProject.h"
#include "core/ThreadSafe.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

using KelMediaLib::SubProject;
using KelMediaLib::ThreadSafe;

namespace {

TEST(ThreadSafeTest, PartReachesTheOwnersLockUntilTheOwnerEnds) {
  boost::shared_ptr<ThreadSafe> owner = boost::make_shared<ThreadSafe>();
  SubProject part(owner);

  boost::shared_ptr<const ThreadSafe> reached = part.projectMutex().lock();
  ASSERT_EQ(owner.get(), reached.get());
  EXPECT_EQ(&owner->mutex(), &reached->mutex());
  reached.reset();

  // The part holds its owner weakly: it doesn't keep the owner alive.
  owner.reset();
  EXPECT_TRUE(part.projectMutex().expired());
  EXPECT_FALSE(part.projectMutex().lock());
}

TEST(ThreadSafeTest, EachOwnerHasItsOwnLock) {
  ThreadSafe first;
  ThreadSafe second;
  EXPECT_EQ(&first.mutex(), &first.mutex());
  EXPECT_NE(&first.mutex(), &second.mutex());
}

}  // namespace
