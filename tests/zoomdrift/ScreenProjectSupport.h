#pragma once

// A project with a screen recording on a track, whose metadata files the
// test writes; an engine that answers what the test scripts.

#include "zoomdrift/ZoomdriftTestSupport.h"

#include "actions/ActionTestSupport.h"
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
#include "support/ScratchFolder.h"

#include <boost/filesystem.hpp>
#include <boost/make_shared.hpp>

#include <fstream>
#include <sstream>
#include <string>

namespace zoomtest {

using KelMediaLib::VMFile;

using actiontest::failure;

struct ScreenProject {
  boost::shared_ptr<OrvMediaLib::InternalOrvProject> project;
  boost::shared_ptr<const KelMediaLib::VisualTrack> track;
  boost::shared_ptr<VMFile> video;
  std::string folder;

  /// A 1280x720 recording of `duration` units on a track at 0, in a project
  /// of `rate` units a second, its files in a folder named `name`.
  explicit ScreenProject(const std::string& name, unsigned rate = 30, long long duration = 900)
      : project(OrvMediaLib::InternalOrvProject::create(rate, 1)),
        folder(testsupport::scratchFolder("zoomdrift-" + name)) {
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

  /// Writes `recording`'s cursor locations and clicks as metadata files
  /// (times in seconds of this project's rate; no windows, no changes) and
  /// sets the metadata by command.
  void attach(const ZoomdriftNS::Params& recording, unsigned rate = 30) {
    std::ostringstream locations, actions;
    locations.precision(12);
    actions.precision(12);
    for (const auto& l : recording.cursorLocations())
      locations << static_cast<double>(l.time) / rate << ' ' << l.x << ' ' << l.y << '\n';
    for (const auto& a : recording.cursorActions())
      actions << static_cast<double>(a.time) / rate << " 1\n";
    write("windows.dat", "");
    write("locations.dat", locations.str());
    write("actions.dat", actions.str());
    write("dirty.dat", "");
    readFiles();
  }

  /// Reads the four files into new metadata and sets it by command.
  void readFiles() {
    const auto metaData = KelMediaLib::ScreenMetaData::create(project, video, project);
    metaData->setFrontWindowFile("windows.dat");
    metaData->setCursorLocationFile("locations.dat");
    metaData->setCursorActionFile("actions.dat");
    metaData->setDirtyRectsFile("dirty.dat");
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
    if (fails)
      throw ZoomdriftNS::ZoomdriftException("no region", ZoomdriftNS::ZDERR_NO_RECORDING_REGION);
  }
};

}  // namespace zoomtest
