#include "clipbin/VidpakStatsLoader.h"

#include "core/Attribute.h"
#include "core/IOException.h"
#include "core/ReadWriteMutex.h"
#include "media/media/AMFile.h"
#include "media/media/ConstMediaDispatcher.h"
#include "media/media/VMFile.h"
#include "media/project/Project.h"
#include "media/sources/MediaFileStats.h"
#include "media/timeline/AudioMixer.h"
#include "media/timeline/AudioTrack.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/VisualMixer.h"
#include "media/timeline/VisualTrack.h"
#include "media/parser/ChangedFileHandler.h"
#include "media/parser/Parser.h"

#include <boost/filesystem.hpp>
#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>

#include <cmath>
#include <string>

namespace OrvMediaLib {

using KelMediaLib::MediaFileStats;

namespace {

const char* const kProjectFile = "/project.xml";

// A recording's files are loaded as they are: the bundle was written as a
// whole, and its stamps say nothing of whether its parts belong together.
class VidpakChangedFileHandler : public KelMediaLib::ChangedFileHandler {
 public:
  bool handleChangedFile(const std::string&, const MediaFileStats*,
                         const MediaFileStats*) override {
    return true;
  }
};

bool isScreenMov(const std::string& name) {
  const std::string leaf = boost::filesystem::path(name).filename().string();
  return leaf == "screen.mov" || leaf == "ScreenCapture.mov" || leaf == "screen.kvdr";
}

void addMetaData(MediaFileStats::TrackStats& track) {
  const boost::filesystem::path folder = boost::filesystem::path(track.fileName).parent_path();
  for (const char* name :
       {"dirtyrect.dat", "cursoraction.dat", "frontmost.dat", "cursorlocation.dat"}) {
    track.metaDataFiles.push_back((folder / name).string());
  }
}

// Fills a track's record from a media of the recording's timeline; media of
// other kinds (stills, transitions, titles) are no track of the recording.
class TrackStatsSetter : public KelMediaLib::ConstMediaDispatcher {
 public:
  explicit TrackStatsSetter(KelMediaLib::EditRate editRate) : editRate_(editRate) {}

  void dispatchMedia(const boost::shared_ptr<const KelMediaLib::VMFile>& media) override {
    MediaFileStats::TrackStats track;
    track.type = MediaFileStats::Video;
    track.fileName = media->fileName();
    track.range = media->mediaTimeRange();
    const KelMediaLib::Rect<double> crop = media->geometryCropRectAtTime(0);
    track.trackRect =
        KelMediaLib::Rect<int>(static_cast<int>(crop.x), static_cast<int>(crop.y),
                               static_cast<int>(crop.width), static_cast<int>(crop.height));
    track.editRate = editRate_;
    if (isScreenMov(track.fileName)) {
      addMetaData(track);
    }
    trackStats = track;
    filled = true;
  }

  void dispatchMedia(const boost::shared_ptr<const KelMediaLib::AMFile>& media) override {
    MediaFileStats::TrackStats track;
    track.type = MediaFileStats::Audio;
    track.fileName = media->fileName();
    track.range = media->mediaTimeRange();
    track.editRate = editRate_;
    // Attributes read their values under their own read lock.
    track.sampleRate = KelMediaLib::EditRate(media->sampleRate()->value(), 1);
    track.bitDepth = static_cast<int>(media->bitDepth()->value());
    track.numChannels = static_cast<int>(media->channels().size());
    trackStats = track;
    filled = true;
  }

  MediaFileStats::TrackStats trackStats;
  bool filled = false;

 private:
  KelMediaLib::EditRate editRate_;
};

void addTrackStatsFromMedia(const boost::shared_ptr<const KelMediaLib::Media>& media,
                            MediaFileStats* stats, KelMediaLib::EditRate editRate) {
  TrackStatsSetter setter(editRate);
  media->dispatch(setter);
  if (setter.filled) {
    stats->addTrackStats(setter.trackStats);
  }
}

void addTrackStatsFromMixer(const KelMediaLib::VisualMixer& mixer, MediaFileStats* stats,
                            KelMediaLib::EditRate editRate) {
  for (auto track = mixer.trackBegin(); track != mixer.trackEnd(); ++track) {
    const auto visual = boost::dynamic_pointer_cast<const KelMediaLib::VisualTrack>(*track);
    if (!visual) {
      continue;
    }
    for (auto media = visual->visualMediaBegin(); media != visual->visualMediaEnd(); ++media) {
      addTrackStatsFromMedia(*media, stats, editRate);
    }
  }
}

void addTrackStatsFromMixer(const KelMediaLib::AudioMixer& mixer, MediaFileStats* stats,
                            KelMediaLib::EditRate editRate) {
  for (auto track = mixer.trackBegin(); track != mixer.trackEnd(); ++track) {
    const auto audio = boost::dynamic_pointer_cast<const KelMediaLib::AudioTrack>(*track);
    if (!audio) {
      continue;
    }
    for (auto media = audio->audioMediaBegin(); media != audio->audioMediaEnd(); ++media) {
      addTrackStatsFromMedia(*media, stats, editRate);
    }
  }
}

void addTrackStats(const KelMediaLib::Timeline& timeline, MediaFileStats* stats,
                   KelMediaLib::EditRate editRate) {
  const auto visual = timeline.visualMixer();
  if (visual) {
    stats->setRect(KelMediaLib::Rect<int>(0, 0, static_cast<int>(visual->attributeWidth()->value()),
                                          static_cast<int>(visual->attributeHeight()->value())));
    addTrackStatsFromMixer(*visual, stats, editRate);
  }
  if (const auto audio = timeline.audioMixer()) {
    addTrackStatsFromMixer(*audio, stats, editRate);
  }
}

// The media model knows no bundle: the loader joins its registry when the
// library is loaded.
const bool kRegistered = [] {
  KelMediaLib::StatsLoader::registerLoader(boost::make_shared<VidpakStatsLoader>());
  return true;
}();

}  // namespace

VidpakStatsLoader::VidpakStatsLoader() : changedFileHandler(new VidpakChangedFileHandler) {}

VidpakStatsLoader::~VidpakStatsLoader() = default;

bool VidpakStatsLoader::canOpenFile(const std::string& path) {
  boost::system::error_code error;
  return boost::filesystem::is_directory(path, error) &&
         boost::filesystem::exists(path + kProjectFile, error);
}

void VidpakStatsLoader::loadStats(const std::string& path, MediaFileStats* stats) {
  if (!canOpenFile(path)) {
    throw KelMediaLib::IOException("specified file not openable with a vidpakstats loader:" + path);
  }
  // The streams are found from the full path: a metadata file's relative
  // name would be read beside its media's file, in the bundle twice over.
  const std::string folder = boost::filesystem::absolute(path).string();
  KelMediaLib::Parser parser(nullptr, changedFileHandler.get());
  parser.setPathPrefix(folder);
  const boost::shared_ptr<KelMediaLib::Project> project =
      parser.parseProject(folder + kProjectFile);
  addTrackStats(*project->timeline(), stats, project->editRate());
  stats->setFilename(path);
}

std::string VidpakStatsLoader::description() const {
  return "VidpakStatsLoader";
}

std::string VidpakStatsLoader::vidpakExtension() {
  return "vdpak";
}

bool VidpakStatsLoader::validSystemAudioFilename(const std::string& name) {
  return name.find("audiotrack0.wav") != std::string::npos;
}

bool VidpakStatsLoader::validMicrophoneAudioFilename(const std::string& name) {
  return name.find("camera.mov") != std::string::npos;
}

bool VidpakStatsLoader::validCameraVideoFilename(const std::string& name) {
  return name.find("camera.mov") != std::string::npos;
}

bool VidpakStatsLoader::validScreenVideoFilename(const std::string& name) {
  return isScreenMov(name);
}

}  // namespace OrvMediaLib
