#include "clipbin/SourceMediaIndexer.h"

#include "media/media/AudioMedia.h"
#include "media/media/FileRepresentation.h"
#include "media/media/VisualMedia.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"

#include <boost/filesystem.hpp>
#include <boost/pointer_cast.hpp>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using KelMediaLib::AudioMedia;
using KelMediaLib::MediaFileStats;
using KelMediaLib::Source;
using KelMediaLib::VisualMedia;
using OrvMediaLib::SourceMediaIndexer;

namespace {

// A source named `path` with a track per file: ".wav" files are sound,
// "camera.mov" both pictures and sound, anything else pictures.
boost::shared_ptr<const Source> sourceOf(const std::string& path,
                                         const std::vector<std::string>& files) {
  const auto stats = MediaFileStats::create();
  stats->setFilename(path);
  for (const std::string& file : files) {
    MediaFileStats::TrackStats track;
    track.range = KelMediaLib::Range<long long>(0, 30);
    track.editRate = KelMediaLib::EditRate(30, 1);
    track.fileName = path + "/" + file;
    const bool sound = file.find(".wav") != std::string::npos;
    track.type = sound ? MediaFileStats::Audio : MediaFileStats::Video;
    track.numChannels = sound ? 1 : 0;
    stats->addTrackStats(track);
    if (file == "camera.mov") {
      track.type = MediaFileStats::Audio;
      track.numChannels = 1;
      stats->addTrackStats(track);
    }
  }
  return Source::create(stats);
}

// The file of the media found, as "file" or "-" for none.
template <class T>
std::string found(const boost::shared_ptr<const Source>& source, int index) {
  const auto media = SourceMediaIndexer::mediaOnTrackIndex<T>(source, index);
  const auto file = boost::dynamic_pointer_cast<const KelMediaLib::FileRepresentation>(media);
  if (!media) return "-";
  return file ? boost::filesystem::path(file->fileName()).filename().string() : "?";
}

struct Case {
  const char* source;
  std::vector<std::string> files;
  // What indices -1, 0, 1 and 2 give, visual then audio.
  std::vector<std::string> visual;
  std::vector<std::string> audio;
};

TEST(SourceMediaIndexerTest, TrackIndicesOfBundlesAndOrdinarySources) {
  const Case cases[] = {
      // A bundle's roles fix the order, whatever the order of its files.
      {"/r.vdpak",
       {"camera.mov", "screen.mov"},
       {"-", "screen.mov", "camera.mov", "-"},
       {"-", "-", "camera.mov", "-"}},
      {"/r.vdpak",
       {"audiotrack0.wav", "camera.mov", "screen.mov"},
       {"-", "screen.mov", "camera.mov", "-"},
       {"-", "audiotrack0.wav", "camera.mov", "-"}},
      {"/r.vdpak",
       {"screen.mov", "audiotrack0.wav"},
       {"-", "screen.mov", "-", "-"},
       {"-", "audiotrack0.wav", "-", "-"}},
      {"/r.vdpak",
       {"ScreenCapture.mov"},
       {"-", "ScreenCapture.mov", "-", "-"},
       {"-", "-", "-", "-"}},
      // Any path holding the letters counts as a bundle.
      {"/home/vdpak-notes/a.mov", {"clip.mov"}, {"-", "-", "-", "-"}, {"-", "-", "-", "-"}},
      // An ordinary source counts; a negative index is the first.
      {"/clips/talk.mov",
       {"one.mov", "a.wav", "two.mov", "b.wav"},
       {"one.mov", "one.mov", "two.mov", "-"},
       {"a.wav", "a.wav", "b.wav", "-"}},
  };
  for (const Case& c : cases) {
    const auto source = sourceOf(c.source, c.files);
    std::vector<std::string> visual, audio;
    for (int index = -1; index <= 2; ++index) {
      visual.push_back(found<const VisualMedia>(source, index));
      audio.push_back(found<const AudioMedia>(source, index));
    }
    EXPECT_EQ(visual, c.visual) << c.source << " " << c.files.size() << " files";
    EXPECT_EQ(audio, c.audio) << c.source << " " << c.files.size() << " files";
  }
}

// The microphone alone takes index 0: a bundle whose camera file holds only
// sound has neither camera pictures nor system sound.
TEST(SourceMediaIndexerTest, MicrophoneAloneIsTheFirstSound) {
  const auto stats = MediaFileStats::create();
  stats->setFilename("/r.vdpak");
  MediaFileStats::TrackStats track;
  track.range = KelMediaLib::Range<long long>(0, 30);
  track.editRate = KelMediaLib::EditRate(30, 1);
  track.type = MediaFileStats::Audio;
  track.numChannels = 1;
  track.fileName = "/r.vdpak/camera.mov";
  stats->addTrackStats(track);
  const auto source = Source::create(stats);
  EXPECT_EQ(found<const AudioMedia>(source, 0), "camera.mov");
  EXPECT_EQ(found<const AudioMedia>(source, 1), "-");
}

}  // namespace
