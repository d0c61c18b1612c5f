#pragma once

// A project with a screen recording on a track, whose metadata files the
// test writes; an engine that answers what the test scripts.

#include "zoomdrift/ZoomdriftTestSupport.h"

#include "media/commands/AddMediaCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/media/VMFile.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/timeline/VisualTrack.h"
#include "project/InternalOrvProject.h"
#include "values/SetAttributeValueCmd.h"
#include "zoomdrift/Zoomdrift.h"
#include "zoomdrift/ZoomdriftException.h"

#include <boost/filesystem.hpp>
#include <boost/make_shared.hpp>

#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

namespace zoomtest {

using KelMediaLib::VMFile;

/// The text of the exception that `f` throws; empty if it throws none.
template <class F>
std::string failure(F f) {
  try {
    f();
  } catch (const std::exception& e) {
    return e.what();
  }
  return "";
}

struct ScreenProject {
  boost::shared_ptr<OrvMediaLib::InternalOrvProject> project;
  boost::shared_ptr<const KelMediaLib::VisualTrack> track;
  boost::shared_ptr<VMFile> video;
  std::string folder;

  /// A 1280x720 recording of `duration` units on a track at 0, in a project
  /// of `rate` units a second, its files in a folder named `name`.
  explicit ScreenProject(const std::string& name, unsigned rate = 30, long long duration = 900)
      : project(OrvMediaLib::InternalOrvProject::create(rate, 1)),
        folder(::testing::TempDir() + "zoomdrift-" + name) {
    run(KelMediaLib::NewVisualMixerCmd::create(1280, 720));
    const auto newTrack = KelMediaLib::NewVisualTrackCmd::create(-1);
    run(newTrack);
    track = newTrack->visualTrack();
    boost::filesystem::create_directories(folder);
    const auto stats = KelMediaLib::MediaFileStats::create();
    stats->setFilename(folder + "/screen.mov");
    stats->setRect(KelMediaLib::Rect<int>(0, 0, 1280, 720));
    KelMediaLib::MediaFileStats::TrackStats picture;
    picture.range = KelMediaLib::Range<long long>(0, duration);
    picture.editRate = KelMediaLib::EditRate(rate, 1);
    picture.type = KelMediaLib::MediaFileStats::Video;
    picture.trackRect = KelMediaLib::Rect<int>(0, 0, 1280, 720);
    stats->addTrackStats(picture);
    const auto source = KelMediaLib::Source::create(stats);
    project->loadSource(source);
    video = VMFile::create(picture.range, project, source, 0);
    run(KelMediaLib::AddMediaCmd::create(track, video, 0));
  }

  void run(const boost::shared_ptr<KelMediaLib::Command>& command) {
    ASSERT_TRUE(project->execute(command));
  }

  /// Writes `recording`'s records as the four metadata files (times in
  /// seconds of this project's rate) and sets the metadata by command.
  void attach(const ZoomdriftNS::Params& recording, unsigned rate = 30) {
    const auto seconds = [rate](long long time) {
      char text[32];
      std::snprintf(text, sizeof text, "%.12g", static_cast<double>(time) / rate);
      return std::string(text);
    };
    std::ostringstream windows, locations, actions, dirty;
    for (const auto& w : recording.foreWindows())
      windows << seconds(w.time) << ' ' << w.rect.left << ' ' << w.rect.top << ' '
              << w.rect.right - w.rect.left << ' ' << w.rect.bottom - w.rect.top << '\n';
    for (const auto& l : recording.cursorLocations())
      locations << seconds(l.time) << ' ' << l.x << ' ' << l.y << '\n';
    std::map<long long, int> masks;
    for (const auto& a : recording.cursorActions()) masks[a.time] |= 1 << a.action;
    for (const auto& m : masks) actions << seconds(m.first) << ' ' << m.second << '\n';
    std::map<long long, std::vector<Rectangle>> changes;
    for (const auto& d : recording.dirtyRects()) changes[d.time].push_back(d.rect);
    for (const auto& c : changes) {
      dirty << seconds(c.first) << ' ' << c.second.size();
      for (const Rectangle& r : c.second)
        dirty << ' ' << r.left << ' ' << r.top << ' ' << r.right - r.left << ' '
              << r.bottom - r.top;
      dirty << '\n';
    }
    const auto metaData = KelMediaLib::ScreenMetaData::create(project, video, project);
    metaData->setFrontWindowFile(write("windows.dat", windows.str()));
    metaData->setCursorLocationFile(write("locations.dat", locations.str()));
    metaData->setCursorActionFile(write("actions.dat", actions.str()));
    metaData->setDirtyRectsFile(write("dirty.dat", dirty.str()));
    run(boost::make_shared<
        KelMediaLib::SetAttributeValueCmd<boost::shared_ptr<const KelMediaLib::ScreenMetaData>>>(
        video->screenMetaData(), metaData));
  }

  std::string write(const std::string& name, const std::string& text) const {
    std::ofstream(folder + "/" + name, std::ios::binary) << text;
    return name;
  }

  /// The project file's text.
  std::string xml() const {
    std::ostringstream out;
    KelMediaLib::XMLable::Options options(out);
    project->toXML(options, 0, "");
    return out.str();
  }
};

/// Answers with the key frames and the rectangle it is given, or throws;
/// keeps what it was asked.
struct ScriptedEngine : ZoomdriftNS::Zoomdrift {
  KeyFrames keyFrames;
  Rectangle atTime = kWhole;
  bool fails = false;
  std::vector<ZoomdriftNS::Params> asked;
  std::vector<long long> askedTimes;

  std::unique_ptr<KeyFrames> calcZoomdriftKeyframes(const ZoomdriftNS::Params& params,
                                                    long) override {
    asked.push_back(params);
    failIfScripted();
    return std::unique_ptr<KeyFrames>(new KeyFrames(keyFrames));
  }
  std::unique_ptr<KeyFrames> calcZoomdriftKeyframeAtTime(const ZoomdriftNS::Params& params,
                                                         long long time) override {
    asked.push_back(params);
    askedTimes.push_back(time);
    failIfScripted();
    return std::unique_ptr<KeyFrames>(new KeyFrames{{time, atTime}});
  }
  void failIfScripted() const {
    if (fails) throw ZoomdriftNS::ZoomdriftException("no region", ZoomdriftNS::ZDERR_NO_RECORDING_REGION);
  }
};

}  // namespace zoomtest
