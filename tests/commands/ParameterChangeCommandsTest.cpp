// Local, global, multi-parametric and vector edits of parameters, run on a
// project through its history, with their undo and redo.

#include "commands/ActionCommandTestSupport.h"

#include "actions/ParameterRange.h"
#include "actions/SetTransform.h"
#include "commands/AddActionCmd.h"
#include "commands/CascadingOrvChangeParameterCmd.h"
#include "commands/OrigOrvChangeParamDeltaCmd.h"
#include "commands/OrvChangeParameterCmd.h"
#include "commands/OrvChangeVectorParameterCmd.h"
#include "commands/OrvMultiChangeParameterCmd.h"
#include "core/Observer.h"
#include "core/XMLable.h"
#include "media/commands/StretchCmd.h"
#include "media/media/Transformer.h"
#include "media/media/VisualMedia.h"
#include "values/AddParameterKeyFrameCmd.h"
#include "values/InterpolatingParam.h"
#include "values/VectorParam.h"

#include <boost/function.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <vector>
#include <stdexcept>

namespace actioncmdtest {
namespace {

using KelMediaLib::InterpolatingParam;
using OrvMediaLib::OrvChangeParameterCmd;
using OrvMediaLib::OrvCommand;

typedef boost::shared_ptr<const InterpolatingParam<double>> Opacity;

Opacity opacityOf(const Media& media) {
  return boost::dynamic_pointer_cast<const InterpolatingParam<double>>(
      media.parameterNamed("opacity"));
}

void addKeyFrame(const Studio& studio, const Opacity& opacity, long long time, double value) {
  studio.project->execute(boost::shared_ptr<KelMediaLib::Command>(
      new KelMediaLib::AddParameterKeyFrameCmd<Parameter<double>>(
          boost::const_pointer_cast<InterpolatingParam<double>>(opacity), time, value)));
}

// A text box at timeline 500 whose actions animate "scale0": A over
// 100..200, B over 400..500 (also fading "opacity" from 1 to 0.5) and C over
// 700..800. The variant with a stray key frame has "opacity" at 0 from time
// 50 on (so its resting key frame stays) and no action A.
struct Scene : Studio {
  boost::shared_ptr<const Media> media = addMedia(500);
  Opacity opacity = opacityOf(*media);
  boost::shared_ptr<Action> a, b, c;

  explicit Scene(bool strayKeyFrame = false) {
    ActionDescription zoomOnly(ActionDescription::CENTER_ACTION);
    zoomOnly.addParameterRange(
        {"scale0", OrvMediaLib::OrigToModified(), OrvMediaLib::ScaleTransform(), 2.0});
    ActionDescription zoomAndFade = zoomOnly;
    zoomAndFade.addParameterRange(
        {"opacity", OrvMediaLib::OrigToModified(), OrvMediaLib::SetTransform(), 0.5});
    if (strayKeyFrame) {
      addKeyFrame(*this, opacity, 50, 0.0);
    } else {
      a = add(zoomOnly, 100);
    }
    b = add(zoomAndFade, 400);
    c = add(zoomOnly, 700);
  }

  boost::shared_ptr<Action> add(const ActionDescription& description, long long start) {
    const auto command =
        OrvMediaLib::AddActionCmd::create(media, project->actionBin(), description, start, 100);
    project->orvExecute(command);
    return command->createdAction();
  }

  /// The number of "opacity" ranges of A, B and C, then the opacity key frames.
  std::string state() const {
    std::string text;
    for (const auto& action : {a, b, c}) {
      int count = 0;
      if (action) {
        const auto ranges = action->parameterRanges();
        for (const auto& range : *ranges) {
          count += range->parameter() == opacity;
        }
      }
      text += std::to_string(count);
    }
    return text + " " + keyFrames(*opacity);
  }
};

/// Runs `command` on the project and checks that undo gives back `state()`
/// exactly as it was and redo as the run left it; returns the latter.
template <class S>
std::string runUndoRedo(const S& scene, boost::shared_ptr<OrvCommand> command) {
  const std::string before = scene.state();
  scene.project->orvExecute(command);
  const std::string after = scene.state();
  scene.project->undo();
  EXPECT_EQ(scene.state(), before);
  scene.project->redo();
  EXPECT_EQ(scene.state(), after);
  return after;
}

TEST(ParameterChangeCommandsTest, LocalEditAnchorsTheActionsAroundItAndWritesItsKeyFrame) {
  // Before the edit: "010 400=1 500=0.5". A right key frame hands its value
  // on to the next key frame, a left one takes the value of the one before.
  const struct {
    bool stray;
    long long time;
    const char* expected;
  } cases[] = {
      // Before every action: only the next one is anchored; with no key frame
      // before, the one after takes the value.
      {false, 0, "110 100=0.25 200=1 400=1 500=0.5"},
      // On the start of A with nothing earlier: that key frame.
      {false, 100, "110 100=0.25 200=1 400=1 500=0.5"},
      // Inside A: both ends lifted by the same difference.
      {false, 150, "110 100=0.25 200=0.25 400=0.25 500=0.5"},
      // On the end of A: the key frame at the edit.
      {false, 200, "110 100=1 200=0.25 400=0.25 500=0.5"},
      // Between A and B: A anchored as the previous action, its end written.
      {false, 300, "110 100=1 200=0.25 400=0.25 500=0.5"},
      // On the start of B: C and A anchored, B has its range already.
      {false, 400, "111 100=1 200=0.25 400=0.25 500=0.5 700=0.5 800=0.5"},
      // Inside B: lifted by 0.5, but its start keeps the value before it.
      {false, 450, "111 100=1 200=1 400=1 500=0 700=0 800=0.5"},
      {false, 500, "111 100=1 200=1 400=1 500=0.25 700=0.25 800=0.5"},
      // After B: A is neither before nor under the edit.
      {false, 600, "011 400=1 500=0.25 700=0.25 800=0.5"},
      {false, 750, "011 400=1 500=0.5 700=0.5 800=0.25"},
      {false, 900, "011 400=1 500=0.5 700=0.5 800=0.25"},
      // On the start of B with a key frame before it: that one is written and
      // B's own stays.
      {true, 400, "011 0=1 50=0.25 400=0 500=0.5 700=0.5 800=0.5"},
  };
  for (const auto& c : cases) {
    const Scene scene(c.stray);
    EXPECT_EQ(runUndoRedo(
                  scene, OrvChangeParameterCmd::createWithAbsolute(
                             scene.media, scene.opacity, scene.project->actionBin(), c.time, 0.25)),
              c.expected)
        << "edit at " << c.time;
  }
}

TEST(ParameterChangeCommandsTest, EarlierDeltaFormMovesTheKeyFramesOfItsCase) {
  const struct {
    long long time;
    const char* expected;
  } cases[] = {
      // Inside B, which has its range: both of its ends.
      {450, "010 400=0.75 500=0.25"},
      // On the start of C, which gets a range first; its start then keeps
      // the value before it.
      {700, "011 400=1 500=0.5 700=0.5 800=0.5"},
      // Off every action and key frame: the next key frame.
      {300, "010 400=0.75 500=0.5"},
  };
  for (const auto& c : cases) {
    const Scene scene;
    EXPECT_EQ(runUndoRedo(scene, OrvMediaLib::OrigOrvChangeParamDeltaCmd::create(
                                     scene.media, scene.opacity, scene.project->actionBin(), c.time,
                                     -0.25)),
              c.expected)
        << "edit at " << c.time;
  }
  const Scene scene;
  const unsigned int entries = scene.project->commandHistory().position();
  EXPECT_EQ(failure([&] {
              scene.project->orvExecute(OrvMediaLib::OrigOrvChangeParamDeltaCmd::create(
                  scene.media, scene.opacity, boost::shared_ptr<const ActionBin>(), 450, 1.0));
            }),
            "Can't modify an action without an actionbin!");
  EXPECT_EQ(scene.project->commandHistory().position(), entries);
}

// Tells which key frame times changed value at each notification.
struct ChangeLog : KelMediaLib::Observer {
  explicit ChangeLog(const Parameter<double>& observed) : parameter(observed), values(read()) {
    parameter.attach(this);
  }
  ~ChangeLog() override { parameter.detach(this); }
  std::vector<double> read() const {
    std::vector<double> now;
    for (const auto& frame : parameter.keyFrames()) now.push_back(frame->value());
    return now;
  }
  void observerUpdate() override {
    const std::vector<double> now = read();
    for (std::size_t i = 0; i < now.size() && i < values.size(); ++i) {
      if (now[i] != values[i]) text += std::to_string(parameter.keyFrameTimes()[i]) + " ";
    }
    values = now;
  }
  const Parameter<double>& parameter;
  std::vector<double> values;
  std::string text;
};

// A text box at the timeline's start, "opacity" at 1, 0.5 and 0.25 at 0, 100
// and 200, and a track, which has no "opacity".
struct Flat : Studio {
  boost::shared_ptr<const Media> media = addMedia(0);
  Opacity opacity = opacityOf(*media);
  Flat() {
    addKeyFrame(*this, opacity, 100, 0.5);
    addKeyFrame(*this, opacity, 200, 0.25);
  }
  std::string state() const { return keyFrames(*opacity); }
};

TEST(ParameterChangeCommandsTest, GlobalEditShiftsEveryKeyFrameInOrderByOneDelta) {
  typedef boost::function<boost::shared_ptr<OrvCommand>(const Flat&)> Make;
  const auto multi = [](const Flat& f) {
    const auto command = OrvMediaLib::OrvMultiChangeParameterCmd::createGlobalWithDelta(
        f.project->actionBin(), "opacity", 999, 0.25);
    command->addParametric(f.track);
    command->addParametric(f.media);
    return command;
  };
  const Make cases[] = {
      [](const Flat& f) {
        return OrvMediaLib::CascadingOrvChangeParameterCmd::createWithDelta(
            f.project->actionBin(), f.media, f.opacity, 150, 0.25);
      },
      // The delta that brings the value at 100 to 0.75.
      [](const Flat& f) {
        return OrvChangeParameterCmd::createGlobalWithAbsolute(f.media, f.opacity,
                                                               f.project->actionBin(), 100, 0.75);
      },
      multi,
  };
  for (const Make& make : cases) {
    const Flat flat;
    const ChangeLog log(*flat.opacity);
    const auto command = make(flat);
    EXPECT_EQ(runUndoRedo(flat, command), "0=1.25 100=0.75 200=0.5");
    EXPECT_EQ(log.text, "0 100 200 200 100 0 0 100 200 ");
  }
  const Flat flat;
  EXPECT_EQ(failure([&] {
              OrvChangeParameterCmd::createGlobalWithDelta(flat.media, flat.opacity,
                                                           flat.project->actionBin(), 0, 1.0);
            }),
            "not implemented");
}

// A text box stretched to `speed`, "opacity" at 0=1, 7=0.5, 101=0.25 on its
// parameter axis and an action fading it to 0.5 over 201..301 there. At 1.5
// the own time of 7 is 10.5 and of 201 is 301.5: a key frame time that went
// to the own axis and back, truncated each way, would land on 6 and 200.
struct Stretched : Studio {
  double speed;
  boost::shared_ptr<const Media> media = addMedia(0);
  Opacity opacity = opacityOf(*media);
  explicit Stretched(double s) : speed(s) {
    project->execute(KelMediaLib::StretchCmd::create(track, media, speed));
    addKeyFrame(*this, opacity, 7, 0.5);
    addKeyFrame(*this, opacity, 101, 0.25);
    ActionDescription fade(ActionDescription::CENTER_ACTION);
    fade.addParameterRange(
        {"opacity", OrvMediaLib::OrigToModified(), OrvMediaLib::SetTransform(), 0.5});
    project->orvExecute(OrvMediaLib::AddActionCmd::create(
        media, project->actionBin(), fade, ownTime(201), ownTime(301) - ownTime(201)));
  }
  /// The smallest own time that maps onto the parameter time `p`.
  long long ownTime(long long p) const {
    return static_cast<long long>(std::ceil(static_cast<double>(p) * speed));
  }
  std::string state() const { return keyFrames(*opacity); }
  std::string text() const {
    std::ostringstream out;
    KelMediaLib::XMLable::Options options(out);
    project->toXML(options, 0, std::string());
    return out.str();
  }
};

TEST(ParameterChangeCommandsTest, EditsOnAStretchedMediaWriteTheKeyFramesOfTheirParameterTime) {
  typedef boost::shared_ptr<OrvCommand> (*Make)(const Stretched&, long long);
  const Make global = [](const Stretched& s, long long) -> boost::shared_ptr<OrvCommand> {
    return OrvMediaLib::CascadingOrvChangeParameterCmd::createWithDelta(
        s.project->actionBin(), s.media, s.opacity, 0, 0.125);
  };
  const Make globalAbsolute = [](const Stretched& s,
                                 long long own) -> boost::shared_ptr<OrvCommand> {
    return OrvChangeParameterCmd::createGlobalWithAbsolute(s.media, s.opacity,
                                                           s.project->actionBin(), own, 0.75);
  };
  const Make local = [](const Stretched& s, long long own) -> boost::shared_ptr<OrvCommand> {
    return OrvChangeParameterCmd::createWithAbsolute(s.media, s.opacity, s.project->actionBin(),
                                                     own, 0.75);
  };
  const Make earlier = [](const Stretched& s, long long own) -> boost::shared_ptr<OrvCommand> {
    return OrvMediaLib::OrigOrvChangeParamDeltaCmd::create(s.media, s.opacity,
                                                           s.project->actionBin(), own, -0.125);
  };
  const struct {
    const char* name;
    Make make;
    long long parameterTime;
  } cases[] = {
      {"global", global, 0},
      {"global to a value at 20", globalAbsolute, 20},
      {"local on the key frame at 7", local, 7},
      {"local between 7 and 101", local, 20},
      {"local on the action's start", local, 201},
      {"local inside the action", local, 250},
      {"earlier form between 7 and 101", earlier, 20},
      {"earlier form on the action's start", earlier, 201},
      {"earlier form inside the action", earlier, 250},
  };
  // At speed 1 both axes are one, so its result is the one to match.
  for (const auto& c : cases) {
    const Stretched reference(1.0);
    const std::string expected =
        runUndoRedo(reference, c.make(reference, reference.ownTime(c.parameterTime)));
    for (const double speed : {1.5, 2.0}) {
      const Stretched stretched(speed);
      const std::string before = stretched.text();
      const auto command = c.make(stretched, stretched.ownTime(c.parameterTime));
      EXPECT_EQ(runUndoRedo(stretched, command), expected) << c.name << " at speed " << speed;
      const std::string after = stretched.text();
      stretched.project->undo();
      EXPECT_EQ(stretched.text(), before) << c.name << " at speed " << speed;
      stretched.project->redo();
      EXPECT_EQ(stretched.text(), after) << c.name << " at speed " << speed;
    }
  }
}

TEST(ParameterChangeCommandsTest, MultiParametricEditSkipsParametricsWithoutTheParameter) {
  const Flat flat;
  const auto second = flat.addMedia(2000);
  // At timeline 2100 the second text box shows its own time 100.
  const auto global = OrvMediaLib::OrvMultiChangeParameterCmd::createGlobal(
      flat.project->actionBin(), "opacity", 2100, 0.75);
  addKeyFrame(flat, opacityOf(*second), 100, 0.5);
  global->addParametric(flat.media);
  global->addParametric(flat.track);
  global->addParametric(second);
  flat.project->orvExecute(global);
  EXPECT_EQ(global->numUndoCommands(), 2u);
  // The first one shows its own time 2100, past its last key frame.
  EXPECT_EQ(keyFrames(*flat.opacity), "0=1.5 100=1 200=0.75");
  EXPECT_EQ(keyFrames(*opacityOf(*second)), "0=1.25 100=0.75");

  // "text" is a parameter of another type.
  const auto local = OrvMediaLib::OrvMultiChangeParameterCmd::createWithDelta(
      flat.project->actionBin(), "text", 0, 1.0);
  local->addParametric(flat.media);
  flat.project->orvExecute(local);
  EXPECT_EQ(local->numUndoCommands(), 0u);
}

TEST(ParameterChangeCommandsTest, VectorEditChangesTheDimensionsOfItsNonZeroComponents) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const struct {
    KelMediaLib::Point delta;
    unsigned int members;
    const char* expected;
  } cases[] = {
      {{0, 0, 0}, 0, "0=1|0=1|0=1"},
      {{0, 0.5, 0}, 1, "0=1|0=1.5|0=1"},
      {{0.25, 0, -0.5}, 2, "0=1.25|0=1|0=0.5"},
      {{nan, 0, 0}, 1, "0=nan|0=1|0=1"},
  };
  for (const auto& c : cases) {
    struct Scaled : Studio {
      boost::shared_ptr<const Media> media = addMedia(0);
      boost::shared_ptr<KelMediaLib::VectorParam> scale =
          boost::dynamic_pointer_cast<const KelMediaLib::VisualMedia>(media)
              ->transformer()
              ->scale();
      std::string state() const {
        return keyFrames(*scale->at(0)) + "|" + keyFrames(*scale->at(1)) + "|" +
               keyFrames(*scale->at(2));
      }
    } scaled;
    const auto command = OrvMediaLib::OrvChangeVectorParameterCmd::createWithDelta(
        scaled.media, scaled.scale, scaled.project->actionBin(), 300, c.delta);
    EXPECT_EQ(runUndoRedo(scaled, command), c.expected);
    EXPECT_EQ(command->numUndoCommands(), c.members);
  }
}

}  // namespace
}  // namespace actioncmdtest
