#pragma once

// A project with a visual mixer and track holding one video clip, and a
// text form of a media's edges for comparing states before and after commands.

#include "media/commands/AddMediaCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/edges/EdgeModFunc.h"
#include "media/edges/EdgeModification.h"
#include "media/media/MediaTestSupport.h"
#include "media/media/VMFile.h"
#include "media/project/InternalProject.h"
#include "media/timeline/VisualTrack.h"

#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>

#include <sstream>
#include <string>
#include <vector>

namespace edgetest {

using namespace KelMediaLib;

/// "L<length>[<parameter>:<function>,...] R<length>[...]", "-" for a
/// modification without a parameter.
inline std::string edgesOf(const Media& media) {
  std::ostringstream out;
  XMLable::Options options(out);
  const auto side = [&](const char* tag, long long length,
                        const std::vector<boost::shared_ptr<const EdgeModification>>& mods) {
    out << tag << length << "[";
    for (std::size_t i = 0; i < mods.size(); ++i) {
      out << (i ? "," : "") << (mods[i]->parameter() ? mods[i]->parameter()->name() : "-") << ":";
      mods[i]->function().xmlName(options);
    }
    out << "]";
  };
  side("L", media.leftEdgeLength(), media.leftEdgeModifications());
  side(" R", media.rightEdgeLength(), media.rightEdgeModifications());
  return out.str();
}

class EdgeFixture : public ::testing::Test {
 protected:
  void SetUp() override {
    project = InternalProject::create(EditRate(30, 1));
    ASSERT_TRUE(project->execute(NewVisualMixerCmd::create(640, 480)));
    const auto trackCmd = NewVisualTrackCmd::create(-1);
    ASSERT_TRUE(project->execute(trackCmd));
    clip = VMFile::create(Range<long long>(0, 300), boost::weak_ptr<const ThreadSafe>(project),
                          mediatest::makeSource(), 0);
    ASSERT_TRUE(project->execute(AddMediaCmd::create(trackCmd->visualTrack(), clip, 0)));
  }

  void run(const boost::shared_ptr<Command>& command) { ASSERT_TRUE(project->execute(command)); }

  boost::shared_ptr<InternalProject> project;
  boost::shared_ptr<VMFile> clip;
};

}  // namespace edgetest
