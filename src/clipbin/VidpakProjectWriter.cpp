#include "clipbin/VidpakProjectWriter.h"

#include "core/CommandHandler.h"
#include "core/IOException.h"
#include "core/KelMediaLibException.h"
#include "media/commands/AddMediaCmd.h"
#include "media/commands/LinkCmd.h"
#include "media/commands/NamedCommand.h"
#include "media/commands/NewAudioMixerCmd.h"
#include "media/commands/NewAudioTrackCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/media/AMFile.h"
#include "media/media/VMFile.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/project/Project.h"
#include "media/project/ProjectWriter.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/timeline/AudioTrack.h"
#include "media/timeline/VisualTrack.h"
#include "values/SetAttributeValueCmd.h"

#include <boost/filesystem.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <string>
#include <vector>

namespace OrvMediaLib {

using namespace KelMediaLib;

namespace {

bool exists(const std::string& path) {
  boost::system::error_code error;
  return boost::filesystem::is_regular_file(path, error);
}

void stamp(const std::string& path, std::time_t time) {
  boost::system::error_code error;
  boost::filesystem::last_write_time(path, time, error);
  if (error) {
    throw IOException("can't set the time of \"" + path + "\": " + error.message());
  }
}

// Puts a source made here into the bin, as a user's load would.
class PutSourceCmd : public NamedCommand {
 public:
  explicit PutSourceCmd(boost::shared_ptr<const Source> source)
      : NamedCommand("PutSourceCmd"), source_(std::move(source)) {}
  PutSourceCmd* clone() const override { return new PutSourceCmd(source_); }
  bool execute(CommandHandler* handler) override {
    handler->loadSource(source_);
    return true;
  }
  bool unexecute(CommandHandler* handler) override {
    handler->unloadSource(source_);
    return true;
  }

 private:
  boost::shared_ptr<const Source> source_;
};

// A stream file of the bundle, loaded as a source of the project.
struct Stream {
  boost::shared_ptr<MediaFileStats> stats;
  boost::shared_ptr<const Source> source;

  // The first track of that type, or -1.
  int track(MediaFileStats::TrackType type) const {
    const auto& tracks = stats->trackStats();
    for (std::size_t i = 0; i < tracks.size(); ++i) {
      if (tracks[i].type == type) return static_cast<int>(i);
    }
    return -1;
  }
};

Stream load(Project& project, const boost::shared_ptr<Project>& self, const std::string& path) {
  Stream stream;
  stream.stats = MediaFileStats::create(path);
  stream.source = Source::create(stream.stats, self, self);
  project.execute(boost::make_shared<PutSourceCmd>(stream.source));
  return stream;
}

boost::shared_ptr<const VMFile> addVideo(Project& project, const boost::shared_ptr<Project>& self,
                                         const Stream& stream, int track) {
  const auto newTrack = NewVisualTrackCmd::create(-1);
  project.execute(newTrack);
  const auto video = VMFile::create(*stream.source->trackRange(static_cast<unsigned>(track)), self,
                                    stream.source, static_cast<unsigned>(track));
  project.execute(AddMediaCmd::create(newTrack->visualTrack(), video, 0));
  return video;
}

void addSound(Project& project, const boost::shared_ptr<Project>& self, const Stream& stream,
              const boost::shared_ptr<const VMFile>& screen) {
  const int track = stream.track(MediaFileStats::Audio);
  const auto newTrack = NewAudioTrackCmd::create(-1);
  project.execute(newTrack);
  std::set<unsigned int> channels;
  for (int c = 0; c < stream.stats->trackStats()[track].numChannels; ++c) {
    channels.insert(static_cast<unsigned>(c));
  }
  const auto audio = AMFile::create(*stream.source->trackRange(static_cast<unsigned>(track)), self,
                                    stream.source, static_cast<unsigned>(track), channels);
  project.execute(AddMediaCmd::create(newTrack->audioTrack(), audio, 0));
  project.execute(LinkCmd::create(screen, audio));
}

}  // namespace

void VidpakProjectWriter::write(const std::string& bundle, std::time_t recordedAt) {
  std::string screenFile;
  for (const char* name : {"screen.mov", "ScreenCapture.mov", "screen.kvdr"}) {
    if (screenFile.empty() && exists(bundle + "/" + name)) screenFile = bundle + "/" + name;
  }
  if (screenFile.empty()) {
    throw KelMediaLibException("\"" + bundle + "\" holds no screen video");
  }
  const std::string cameraFile = bundle + "/camera.mov";
  const std::string soundFile = bundle + "/audiotrack0.wav";

  // The rate and size come from the screen: probe it before the project.
  const auto screenStats = MediaFileStats::create(screenFile);
  const auto& tracks = screenStats->trackStats();
  const auto picture = std::find_if(tracks.begin(), tracks.end(), [](const auto& track) {
    return track.type == MediaFileStats::Video;
  });
  if (picture == tracks.end()) {
    throw KelMediaLibException("\"" + screenFile + "\" holds no video");
  }
  const boost::shared_ptr<Project> project = Project::create(picture->editRate);
  project->execute(NewVisualMixerCmd::create(static_cast<float>(screenStats->rect().width),
                                             static_cast<float>(screenStats->rect().height)));

  std::vector<Stream> streams;
  streams.push_back(load(*project, project, screenFile));
  const Stream screen = streams.back();
  const auto screenVideo = addVideo(*project, project, screen, screen.track(MediaFileStats::Video));
  const auto metaData = ScreenMetaData::create(project, screenVideo, project);
  const std::vector<std::pair<const char*, void (ScreenMetaData::*)(const std::string&)>> files = {
      {"frontmost.dat", &ScreenMetaData::setFrontWindowFile},
      {"cursorlocation.dat", &ScreenMetaData::setCursorLocationFile},
      {"cursoraction.dat", &ScreenMetaData::setCursorActionFile},
      {"dirtyrect.dat", &ScreenMetaData::setDirtyRectsFile}};
  std::vector<std::string> named;
  for (const auto& file : files) {
    if (exists(bundle + "/" + file.first)) {
      (metaData.get()->*file.second)(file.first);
      named.push_back(bundle + "/" + file.first);
    }
  }
  project->execute(
      boost::make_shared<SetAttributeValueCmd<boost::shared_ptr<const ScreenMetaData>>>(
          screenVideo->screenMetaData(), metaData));

  std::vector<const Stream*> sounds;
  if (exists(cameraFile)) {
    streams.push_back(load(*project, project, cameraFile));
  }
  if (exists(soundFile)) {
    streams.push_back(load(*project, project, soundFile));
  }
  // The system sound first, then the camera's.
  for (auto it = streams.rbegin(); it != streams.rend(); ++it) {
    if (it->track(MediaFileStats::Audio) >= 0) sounds.push_back(&*it);
  }
  if (!sounds.empty()) {
    const auto& first =
        sounds.front()->stats->trackStats()[sounds.front()->track(MediaFileStats::Audio)];
    project->execute(NewAudioMixerCmd::create(
        static_cast<unsigned>(first.sampleRate.numerator() / first.sampleRate.denominator()),
        static_cast<unsigned>(first.bitDepth), static_cast<unsigned>(first.numChannels)));
  }
  for (const Stream& stream : streams) {
    if (stream.source != screen.source && stream.track(MediaFileStats::Video) >= 0) {
      addVideo(*project, project, stream, stream.track(MediaFileStats::Video));
    }
  }
  for (const Stream* sound : sounds) {
    addSound(*project, project, *sound, screenVideo);
  }

  // The media are made: now the names can become the bundle's own.
  for (const Stream& stream : streams) {
    named.push_back(stream.stats->filename());
    stream.stats->setFilename(
        boost::filesystem::path(stream.stats->filename()).filename().string());
    stream.stats->setLastModified(recordedAt);
  }
  for (const std::string& file : named) {
    stamp(file, recordedAt);
  }
  ProjectWriter::write(*project, bundle + "/project.xml");
  stamp(bundle + "/project.xml", recordedAt);
}

}  // namespace OrvMediaLib
