// Reading the files the library writes: write, read, write again gives the
// same bytes, the model read has the same media, key frames and actions
// (ranges sharing their key frames with the parameters), and loading leaves
// no history. Random projects are built through the same commands a user's
// edits run. Every write and read runs under German number punctuation.

#include "actions/ActionBin.h"
#include "actions/ActionDescription.h"
#include "actions/EdgeAction.h"
#include "actions/OrigToModified.h"
#include "actions/OrvException.h"
#include "actions/ParameterRange.h"
#include "actions/ScaleTransform.h"
#include "actions/SetTransform.h"
#include "actions/TranslateTransform.h"
#include "commands/AddActionCmd.h"
#include "commands/MoveActionCmd.h"
#include "commands/RemoveActionCmd.h"
#include "commands/TrimActionEndCmd.h"
#include "commands/TrimActionStartCmd.h"
#include "core/Attribute.h"
#include "core/ParserException.h"
#include "core/ValueException.h"
#include "media/commands/AddEffectCmd.h"
#include "media/commands/AddLeftEdgeModCmd.h"
#include "media/commands/AddMediaCmd.h"
#include "media/commands/LinkCmd.h"
#include "media/commands/LoadSourceCmd.h"
#include "media/commands/MoveLeftEdgeModCmd.h"
#include "media/commands/MoveMediaCmd.h"
#include "media/commands/NewAudioMixerCmd.h"
#include "media/commands/NewAudioTrackCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/commands/StretchCmd.h"
#include "media/commands/TrimEndCmd.h"
#include "media/commands/TrimStartCmd.h"
#include "media/edges/EdgeModification.h"
#include "media/edges/FadeInFunc.h"
#include "media/edges/RotateFunc.h"
#include "media/effects/GenericEffect.h"
#include "media/media/AMFile.h"
#include "media/media/AudioTransition.h"
#include "media/media/Callout.h"
#include "media/media/IMFile.h"
#include "media/media/ImageTransition.h"
#include "media/media/TextBox.h"
#include "media/media/Transformer.h"
#include "media/media/VMFile.h"
#include "media/project/CommandHistory.h"
#include "media/project/ProjectWriter.h"
#include "media/timeline/AudioTrack.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/VisualMixer.h"
#include "media/timeline/VisualTrack.h"
#include "parser/OrvParser.h"
#include "project/OrvProject.h"
#include "support/GermanLocale.h"
#include "values/AddParameterKeyFrameCmd.h"
#include "values/InterpolatingParam.h"
#include "values/SetAttributeValueCmd.h"
#include "values/VectorParam.h"

#include <boost/lexical_cast/bad_lexical_cast.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <regex>
#include <sstream>

namespace {

using namespace KelMediaLib;
using namespace OrvMediaLib;

std::string dataFile(const char* name) {
  return std::string(ORV_TEST_DATA_DIR) + "/" + name;
}

std::string written(const Project& project) {
  std::ostringstream out;
  ProjectWriter::write(project, out);
  return out.str();
}

boost::shared_ptr<OrvProject> read(const std::string& text) {
  OrvParser parser(nullptr, nullptr);
  std::istringstream in(text);
  return parser.parseProject(in);
}

ActionDescription describe(ActionDescription::ActionType type,
                           std::initializer_list<std::pair<const char*, double>> ranges) {
  ActionDescription description(type);
  for (const auto& range : ranges) {
    description.addParameterRange({range.first, OrigToModified(), ScaleTransform(), range.second});
  }
  return description;
}

// Every action of a bin. Each range's key frames are checked against the
// parameter's own: a range, edited or read, must hold the very objects.
std::string actionsOf(const OrvProject& project, const ActionBin& bin) {
  std::ostringstream text;
  for (const auto& media : project.timeline()->allMedias()) {
    const auto actions = bin.mediasActions(media.get());
    for (const auto& action : *actions) {
      text << (dynamic_cast<const EdgeAction*>(action.get()) ? "edge " : "centre ")
           << action->timeRange().start << '+' << action->timeRange().duration;
      const auto ranges = action->parameterRanges();
      for (const auto& range : *ranges) {
        const auto left = range->leftKeyframe();
        const auto right = range->rightKeyframe();
        text << ' ' << range->parameter()->name() << '[' << left->time() << ',' << right->time()
             << ']';
        EXPECT_EQ(left, range->parameter()->keyFrame(left->time()));
        EXPECT_EQ(right, range->parameter()->keyFrame(right->time()));
      }
      text << '\n';
    }
  }
  return text.str();
}

std::string actionsOf(const OrvProject& project) {
  return actionsOf(project, *project.actionBin()) + "zd\n" +
         actionsOf(project, *project.zdActionBin()) + "audio\n" +
         actionsOf(project, *project.audioActionBin());
}

// Write, read back, write again: the two texts and the actions must agree,
// and the project read must have nothing to undo. Returns the project read.
boost::shared_ptr<OrvProject> roundTrip(const OrvProject& project) {
  const std::string first = written(project);
  boost::shared_ptr<OrvProject> back;
  try {
    back = read(first);
  } catch (const std::exception& e) {
    ADD_FAILURE() << e.what() << " reading\n" << first;
    return back;
  }
  EXPECT_TRUE(back);
  if (!back) {
    return back;
  }
  EXPECT_EQ(first, written(*back));
  EXPECT_EQ(actionsOf(project), actionsOf(*back));
  EXPECT_EQ(0u, back->commandHistory().numCommands());
  EXPECT_THROW(back->undo(), KelMediaLibException);
  return back;
}

struct Studio {
  Studio() : project(OrvProject::create(30, 1)) {
    project->execute(NewVisualMixerCmd::create(640, 480));
    project->execute(NewAudioMixerCmd::create(8000, 16, 1));
    video = newTrack<NewVisualTrackCmd>()->visualTrack();
    overlays = newTrack<NewVisualTrackCmd>()->visualTrack();
    audio = newTrack<NewAudioTrackCmd>()->audioTrack();
    clip = load("clip.mp4");
    tone = load("tone.wav");
    still = load("still.png");
  }

  template <class C>
  boost::shared_ptr<C> newTrack() {
    const auto command = C::create(-1);
    project->execute(command);
    return command;
  }
  boost::shared_ptr<const Source> load(const char* name) {
    const auto command = LoadSourceCmd::create(dataFile(name));
    project->execute(command);
    return command->source();
  }
  template <class M>
  boost::shared_ptr<M> add(const boost::shared_ptr<const Track>& track,
                           const boost::shared_ptr<M>& media, long long at) {
    project->execute(AddMediaCmd::create(track, media, at));
    return media;
  }
  void act(const boost::shared_ptr<const Media>& media,
           const boost::shared_ptr<const ActionBin>& bin, const ActionDescription& description,
           long long start, long long duration) {
    project->orvExecute(AddActionCmd::create(media, bin, description, start, duration));
  }

  boost::shared_ptr<OrvProject> project;
  boost::shared_ptr<const VisualTrack> video;
  boost::shared_ptr<const VisualTrack> overlays;
  boost::shared_ptr<const AudioTrack> audio;
  boost::shared_ptr<const Source> clip;
  boost::shared_ptr<const Source> tone;
  boost::shared_ptr<const Source> still;
};

TEST(OrvParserTest, EveryKindOfMediaAndActionComesBackAsWritten) {
  testsupport::GermanLocale german;
  Studio s;
  const auto movie =
      s.add(s.video, VMFile::create(Range<long long>(0, 30), s.project, s.clip, 0), 0);
  s.project->execute(StretchCmd::create(s.video, movie, 2.0));
  s.project->execute(
      boost::make_shared<SetAttributeValueCmd<std::string>>(movie->ident(), "take 1"));
  const auto blur = GenericEffect::create("Blur", s.project);
  s.project->execute(AddEffectCmd::create(movie, blur));
  s.project->execute(MoveLeftEdgeModCmd::create(movie, 10));
  s.project->execute(
      AddLeftEdgeModCmd::create(movie, EdgeModification(movie->opacity(), FadeInFunc())));
  s.project->execute(AddLeftEdgeModCmd::create(
      movie, EdgeModification(s.video->transformer()->rotation()->at(2), RotateFunc(3))));
  const auto picture = s.add(s.overlays, IMFile::create(0, 90, s.project, s.still, 0), 100);
  s.project->execute(TrimStartCmd::create(s.overlays, picture, 7));
  const auto title = s.add(s.overlays, TextBox::create("Hello", 60, 320.5f, 40, s.project), 300);
  s.project->execute(
      boost::make_shared<SetAttributeValueCmd<std::string>>(title->ident(), "title"));
  const auto callout = s.add(s.overlays, Callout::create(0, 45, s.project, s.still, 0), 400);
  s.add(s.overlays, ImageTransition::create(20, s.project), 500);
  const auto voice =
      s.add(s.audio, AMFile::create(Range<long long>(0, 7), s.project, s.tone, 0, {0}), 0);
  s.project->execute(LinkCmd::create(callout, movie));
  s.project->execute(LinkCmd::create(voice, callout));
  s.add(s.audio, AudioTransition::create(10, s.project), 40);

  const double extremes[] = {0.1,    -0.0, 5e-324, 2.2250738585072014e-308, 1.7976931348623157e308,
                             1.0 / 3};
  s.act(movie, s.project->actionBin(), describe(ActionDescription::CENTER_ACTION, {{"scale0", 2}}),
        5, 10);
  s.act(
      movie, s.project->zdActionBin(),
      describe(ActionDescription::CENTER_ACTION, {{"translation0", extremes[1]}, {"opacity", 0.5}}),
      20, 8);
  s.act(title, s.project->actionBin(), describe(ActionDescription::EDGE_ACTION, {{"scale1", 3}}), 0,
        4);
  s.act(title, s.project->actionBin(),
        describe(ActionDescription::CENTER_ACTION, {{"opacity", extremes[2]}}), 10, 20);
  s.act(callout, s.project->actionBin(),
        describe(ActionDescription::CENTER_ACTION, {{"scale0", extremes[4]}}), 1, 5);
  s.act(voice, s.project->audioActionBin(),
        describe(ActionDescription::CENTER_ACTION, {{"volume", extremes[3]}}), 2, 6);
  for (int i = 0; i < 6; ++i) {
    s.project->execute(boost::make_shared<AddParameterKeyFrameCmd<Parameter<double>>>(
        movie->opacity(), 100 + i, extremes[i]));
  }
  // The ends of time, and the ends of the integer attributes.
  for (const long long time :
       {std::numeric_limits<long long>::min(), std::numeric_limits<long long>::max()}) {
    s.project->execute(boost::make_shared<AddParameterKeyFrameCmd<Parameter<double>>>(
        callout->opacity(), time, 0.5));
  }
  s.project->execute(boost::make_shared<SetAttributeValueCmd<unsigned int>>(
      voice->bitDepth(), std::numeric_limits<unsigned int>::max()));
  const auto back = roundTrip(*s.project);
  ASSERT_TRUE(back);
  EXPECT_EQ(6u, back->timeline()->allMedias().size());  // the audio transition isn't in the file
  EXPECT_EQ(4u, back->actionBin()->numActions());       // two on the title
  EXPECT_EQ(1u, back->zdActionBin()->numActions());
  EXPECT_EQ(1u, back->audioActionBin()->numActions());
  const std::string text = written(*back);
  EXPECT_NE(std::string::npos, text.find("<EdgeAction id="));
  EXPECT_NE(std::string::npos, text.find("value=\"title\""));
  EXPECT_NE(std::string::npos, text.find("value=\"5e-324\""));
  EXPECT_NE(std::string::npos, text.find("value=\"-0\""));
  EXPECT_NE(std::string::npos, text.find("time=\"-9223372036854775808\""));
  EXPECT_NE(std::string::npos, text.find("value=\"4294967295\""));
}

// Seeded random sessions of media and action edits, each through a command,
// then the round trip. ORV_ROUND_TRIP_SEEDS sets how many (default 1000).
TEST(OrvParserTest, RandomProjectsSurviveTheRoundTrip) {
  testsupport::GermanLocale german;
  const char* env = std::getenv("ORV_ROUND_TRIP_SEEDS");
  const int seeds = env ? std::atoi(env) : 1000;
  const char* parameters[] = {"scale0", "scale1", "translation0", "opacity"};
  for (int seed = 1; seed <= seeds; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(static_cast<unsigned int>(seed));
    const auto pick = [&](long long low, long long high) {
      return std::uniform_int_distribution<long long>(low, high)(random);
    };
    const auto project = OrvProject::create(static_cast<unsigned int>(pick(1, 60)), 1);
    project->execute(NewVisualMixerCmd::create(640, 480));
    const auto trackCmd = NewVisualTrackCmd::create(-1);
    project->execute(trackCmd);
    const auto track = trackCmd->visualTrack();
    std::vector<boost::shared_ptr<const Media>> media;
    for (long long i = 0, n = pick(1, 4); i < n; ++i) {
      media.push_back(
          TextBox::create("t" + std::to_string(i), pick(50, 500), 100.0f, 50.0f, project));
      project->execute(AddMediaCmd::create(track, media.back(), pick(0, 2000)));
    }
    std::vector<boost::shared_ptr<Action>> actions;
    for (int step = 0; step < 12; ++step) {
      const auto& target =
          media[static_cast<std::size_t>(pick(0, static_cast<long long>(media.size()) - 1))];
      try {
        switch (pick(0, 5)) {
          case 0:
          case 1: {
            ActionDescription description(ActionDescription::CENTER_ACTION);
            description.addParameterRange({parameters[pick(0, 3)], OrigToModified(), SetTransform(),
                                           std::ldexp(static_cast<double>(pick(-1000, 1000)),
                                                      static_cast<int>(pick(-30, 30)))});
            const auto command = AddActionCmd::create(
                target, pick(0, 1) ? project->actionBin() : project->zdActionBin(), description,
                pick(0, 400), pick(1, 100));
            project->orvExecute(command);
            actions.push_back(command->createdAction());
            break;
          }
          case 2:
            if (!actions.empty())
              project->orvExecute(
                  MoveActionCmd::create(actions[static_cast<std::size_t>(
                                            pick(0, static_cast<long long>(actions.size()) - 1))],
                                        pick(-20, 20)));
            break;
          case 3:
            // Shortening and lengthening: a trim onto a neighbour that
            // animates another parameter is refused, as a bin being loaded
            // would refuse it.
            if (!actions.empty())
              project->orvExecute(
                  TrimActionEndCmd::create(actions[static_cast<std::size_t>(pick(
                                               0, static_cast<long long>(actions.size()) - 1))],
                                           pick(-30, 5)));
            break;
          case 4:
            project->execute(MoveMediaCmd::create(track, target, pick(-100, 100)));
            break;
          case 5:
            if (pick(0, 3) == 0) project->undo();
            break;
        }
      } catch (const std::exception&) {
        // A refused edit changes nothing; the session goes on.
      }
    }
    roundTrip(*project);
    if (HasFailure()) {
      break;
    }
  }
}

// Each row spoils a file the writer wrote, in its action part.
TEST(OrvParserTest, RefusesMalformedActionPartsWithTheirTexts) {
  Studio s;
  const auto title = s.add(s.overlays, TextBox::create("Hello", 60, 320.5f, 40, s.project), 0);
  s.act(title, s.project->actionBin(),
        describe(ActionDescription::CENTER_ACTION, {{"opacity", 0.5}}), 10, 20);
  const std::string good = written(*s.project);
  const auto spoil = [&](const std::string& from, const std::string& to) {
    std::string text = good;
    const auto at = text.find(from);
    EXPECT_NE(std::string::npos, at) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
  };
  const auto fails = [&](const std::string& text) -> std::string {
    try {
      read(text);
    } catch (const ParserException& e) {
      return "ParserException " + e.positionText();
    } catch (const ValueException<unsigned int>& e) {
      return std::string("ValueException ") + e.what();
    } catch (const OrvException& e) {
      return std::string("OrvException ") + e.what();
    } catch (const boost::bad_lexical_cast&) {
      return "bad_lexical_cast";
    }
    return "loaded";
  };
  const auto line = [&](const std::string& text, const std::string& marker) {
    const auto at = text.find(marker);
    const auto lineStart = text.rfind('\n', at);
    return " (line " + std::to_string(std::count(text.begin(), text.begin() + at, '\n') + 1) +
           ", column " + std::to_string(at - lineStart - 1) + ")";
  };
  struct Row {
    std::string from, to, expected, marker;
  };
  const Row rows[] = {
      {"<OrvProject", "<MyProject",
       "ParserException Unexpected name \"MyProject\" in OrvStartState", "<MyProject"},
      {"name=\"actionBin\"", "name=\"mainBin\"",
       "ParserException unexpected ActionBin name in OrvProject", "<ActionBin id"},
      {"<MediasActions media", "<MediaActions media",
       "ParserException Unexpected name \"MediaActions\" in ActionBinState", "<MediaActions"},
      {"<CenterAction id", "<SideAction id",
       "ParserException Unexpected name \"SideAction\" in MediasActionsState", "<SideAction"},
      {"<ParameterRanges>", "<Ranges>", "ParserException Unexpected name \"Ranges\" in ActionState",
       "<Ranges"},
      {"<ParameterRange id", "<Range id",
       "ParserException Unexpected name \"Range\" in ParameterRangesState", "<Range id"},
      {"<CenterAction id=", "<CenterAction colour=\"red\" id=",
       "ParserException Unexpected ActionState attribute \"colour\".", "<CenterAction"},
      {"timeRange=", "range=", "ParserException Unexpected ActionState attribute \"range\".",
       "<CenterAction"},
      {"left=\"10\"", "left=\"11\"",
       "ParserException ParameterRange: parameter \"opacity\" has no key frame at 11",
       "<ParameterRange "},
      {"timeRange=\"(10,20)\"", "timeRange=\"(10;20)x\"", "bad_lexical_cast", ""},
  };
  for (const Row& row : rows) {
    const std::string text = spoil(row.from, row.to);
    EXPECT_EQ(row.expected + (row.marker.empty() ? "" : line(text, row.marker)), fails(text))
        << row.to;
  }
  // The media an action group names must be known.
  const std::string unknown = std::regex_replace(good, std::regex("MediasActions media=\"[0-9]+\""),
                                                 "MediasActions media=\"999\"");
  EXPECT_EQ("ValueException ident not found in source table", fails(unknown));
  // A range whose parametric or parameter isn't known is dropped; the load goes on.
  const auto dropped =
      read(std::regex_replace(good, std::regex("parameter=\"opacity\""), "parameter=\"glow\""));
  ASSERT_TRUE(dropped);
  EXPECT_EQ(1u, dropped->actionBin()->numActions());
  // A second action over the same time collides in the bin.
  const auto begin = good.find("      <CenterAction");
  const auto end = good.find("</CenterAction>", begin) + 16;
  std::string twice = good;
  twice.insert(end, good.substr(begin, end - begin));
  EXPECT_EQ(0u, fails(twice).rfind("OrvException", 0)) << fails(twice);
}

}  // namespace
