#include "media/commands/TimelineFixture.h"

#include "core/KelMediaLibException.h"
#include "core/ReadWriteMutex.h"
#include "media/project/ClipBoard.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace KelMediaLib {
namespace testSupport {
namespace {

class ClipBoardTest : public TimelineFixture {
 protected:
  void SetUp() override {
    TimelineFixture::SetUp();
    first = add(video, clip(100, 300), 500);
    animate(first);
  }

  boost::shared_ptr<VMFile> first;
};

// What is copied are clones, taken when copied; each paste gives new ones and
// the content stays. A copy that fails keeps what was there.
TEST_F(ClipBoardTest, CopyTakesClonesAndEachPasteGivesNewOnes) {
  const auto board = project->clipBoard();
  board->copy({first});
  first->opacity()->addKeyFrame(260, 0.25);
  const std::string model = snapshot();
  const auto pasted = board->paste();
  const auto again = board->paste();
  ASSERT_EQ(1u, pasted.size());
  ASSERT_EQ(1u, again.size());
  EXPECT_NE(pasted[0], again[0]);
  EXPECT_NE(boost::shared_ptr<const Media>(first), boost::shared_ptr<const Media>(pasted[0]));
  EXPECT_EQ(first->range().duration, pasted[0]->range().duration);
  EXPECT_FALSE(pasted[0]->parent());
  const auto opacity = boost::dynamic_pointer_cast<VMFile>(pasted[0])->opacity();
  EXPECT_EQ((std::vector<long long>{0, 150, 200, 250}), opacity->keyFrameTimes());
  EXPECT_EQ(model, snapshot());

  EXPECT_THROW(board->copy({first, nullptr}), KelMediaLibException);
  EXPECT_EQ(1u, board->size());
  EXPECT_EQ(4u, boost::dynamic_pointer_cast<VMFile>(board->paste()[0])->opacity()->numKeyFrames());
}

// Copying reads the model: it waits while another thread writes.
TEST_F(ClipBoardTest, ConcurrencyCopyWaitsForAWriter) {
  std::atomic<bool> written(false);
  std::thread copier;
  {
    const ReadWriteMutex::ScopedWriteLock write(project->mutex());
    copier = std::thread([&] {
      project->clipBoard()->copy({first});
      EXPECT_TRUE(written.load());
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    written = true;
  }
  copier.join();
  EXPECT_EQ(1u, project->clipBoard()->size());
}

}  // namespace
}  // namespace testSupport
}  // namespace KelMediaLib
