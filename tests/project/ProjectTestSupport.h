#pragma once

// A project of the editing model with a visual mixer, one video track and a
// text box of 1000 units on it at 0, made through commands; actions on the
// opacity (or another parameter of doubles) with the values 0.25 and 0.75.

#include "actions/ActionBin.h"
#include "actions/ActionTestSupport.h"
#include "actions/CenterAction.h"
#include "actions/OrvException.h"
#include "actions/ParameterRange.h"
#include "media/commands/AddMediaCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/media/TextBox.h"
#include "media/timeline/VisualTrack.h"
#include "project/InternalOrvProject.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <string>
#include <vector>

namespace projecttest {

using namespace KelMediaLib;
using namespace OrvMediaLib;
using actiontest::failure;
using actiontest::parameterOf;
typedef Range<long long> R;
typedef std::vector<long long> Times;

inline Times timesOf(const Parametric& owner, const std::string& name = "opacity") {
  return parameterOf(owner, name)->keyFrameTimes();
}

/// Its key frames are in no parameter yet.
inline boost::shared_ptr<ParameterRange> rangeOn(const boost::shared_ptr<const Parametric>& owner,
                                                 long long left, long long right,
                                                 const std::string& name = "opacity") {
  return boost::make_shared<ParameterRange>(
      owner, parameterOf(*owner, name), boost::make_shared<KeyFrame<double>>(left, 0.25),
      boost::make_shared<KeyFrame<double>>(right, 0.75), OrigToModified());
}

inline boost::shared_ptr<CenterAction> actionOn(const boost::shared_ptr<const Parametric>& owner,
                                                long long left, long long right) {
  const auto action = boost::make_shared<CenterAction>(owner);
  action->addParameterRange(*rangeOn(owner, left, right));
  return action;
}

class ProjectFixture : public ::testing::Test {
 protected:
  void SetUp() override {
    project = InternalOrvProject::create(30, 1);
    run(NewVisualMixerCmd::create(640, 480));
    const auto trackCmd = NewVisualTrackCmd::create(-1);
    run(trackCmd);
    track = trackCmd->visualTrack();
    media = addBox(0);
  }

  void run(const boost::shared_ptr<Command>& command) { ASSERT_TRUE(project->execute(command)); }

  boost::shared_ptr<TextBox> addBox(long long time) {
    const auto box =
        TextBox::create("t", 1000, 10.0f, 10.0f, boost::weak_ptr<const ThreadSafe>(project));
    run(AddMediaCmd::create(track, box, time));
    return box;
  }

  /// An action on the opacity of `on`, added to `bin` (the main bin if null).
  boost::shared_ptr<CenterAction> added(const boost::shared_ptr<const Media>& on, long long left,
                                        long long right,
                                        boost::shared_ptr<const ActionBin> bin = nullptr) {
    const auto action = actionOn(on, left, right);
    project->addAction(bin ? bin : project->actionBin(), action);
    return action;
  }

  boost::shared_ptr<InternalOrvProject> project;
  boost::shared_ptr<const VisualTrack> track;
  boost::shared_ptr<TextBox> media;
};

}  // namespace projecttest
