// Cost of writing a project file: 10,000 video media on 10 tracks, each with
// 10 key frames on its opacity, its x translation and its x scale, written by
// the project writer and, for comparison, the same bytes written from a
// prepared string into the same kind of stream. Bytes per second are shown
// for both; the writer aims at no more than three times the plain copy.

#include "media/commands/AddMediaCmd.h"
#include "media/commands/NewAudioMixerCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/media/Transformer.h"
#include "media/media/VMFile.h"
#include "media/project/InternalProject.h"
#include "media/project/ProjectWriter.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/timeline/VisualTrack.h"
#include "values/InterpolatingParam.h"
#include "values/VectorParam.h"

#include <benchmark/benchmark.h>

#include <boost/filesystem.hpp>
#include <boost/shared_ptr.hpp>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

namespace {

using namespace KelMediaLib;

const int kMedias = 10000;
const int kTracks = 10;
const int kKeyFrames = 10;

boost::shared_ptr<InternalProject> makeProject() {
  const boost::shared_ptr<InternalProject> project = InternalProject::create(EditRate(30, 1));
  project->execute(NewVisualMixerCmd::create(1920, 1080));
  project->execute(NewAudioMixerCmd::create(48000, 16, 2));
  const boost::shared_ptr<MediaFileStats> stats = MediaFileStats::create();
  stats->setFilename("/recordings/session 1/capture.mov");
  MediaFileStats::TrackStats video;
  video.range = Range<long long>(0, 100000000);
  video.editRate = EditRate(30, 1);
  video.type = MediaFileStats::Video;
  video.trackRect = Rect<int>(0, 0, 1920, 1080);
  stats->addTrackStats(video);
  const boost::shared_ptr<Source> source = Source::create(stats);
  project->loadSource(source);

  const boost::weak_ptr<const ThreadSafe> lock(project);
  for (int t = 0; t < kTracks; ++t) {
    const boost::shared_ptr<NewVisualTrackCmd> newTrack = NewVisualTrackCmd::create(-1);
    project->execute(newTrack);
    for (int i = 0; i < kMedias / kTracks; ++i) {
      const long long start = 300LL * i;
      const boost::shared_ptr<VMFile> media =
          VMFile::create(Range<long long>(start, 300), lock, source, 0);
      for (int k = 0; k < kKeyFrames; ++k) {
        const long long time = start + 30LL * k;
        media->opacity()->addKeyFrame(time, 1.0 / (k + 1));
        media->transformer()->translation()->at(0)->addKeyFrame(time, 0.1 * k * i);
        media->transformer()->scale()->at(0)->addKeyFrame(time, 1.0 + k / 7.0);
      }
      project->execute(AddMediaCmd::create(newTrack->visualTrack(), media, start));
    }
  }
  return project;
}

const InternalProject& project() {
  static const boost::shared_ptr<InternalProject> made = makeProject();
  return *made;
}

const std::string& prepared() {
  static const std::string text = [] {
    std::ostringstream out;
    ProjectWriter::write(project(), out);
    return out.str();
  }();
  return text;
}

std::string scratchFile() {
  return (boost::filesystem::temp_directory_path() /
          boost::filesystem::unique_path("writer-bench-%%%%%%.xml"))
      .string();
}

void writeProjectToString(benchmark::State& state) {
  prepared();  // builds the project outside the timed loop
  for (auto _ : state) {
    std::ostringstream out;
    ProjectWriter::write(project(), out);
    benchmark::DoNotOptimize(out.tellp());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(prepared().size()));
}
BENCHMARK(writeProjectToString)->Unit(benchmark::kMillisecond);

void copyPreparedToString(benchmark::State& state) {
  const std::string& text = prepared();
  for (auto _ : state) {
    std::ostringstream out;
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    benchmark::DoNotOptimize(out.tellp());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}
BENCHMARK(copyPreparedToString)->Unit(benchmark::kMillisecond);

void writeProjectToFile(benchmark::State& state) {
  prepared();  // builds the project outside the timed loop
  const std::string path = scratchFile();
  for (auto _ : state) {
    ProjectWriter::write(project(), path);
  }
  std::remove(path.c_str());
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(prepared().size()));
}
BENCHMARK(writeProjectToFile)->Unit(benchmark::kMillisecond);

void copyPreparedToFile(benchmark::State& state) {
  const std::string& text = prepared();
  const std::string path = scratchFile();
  for (auto _ : state) {
    std::ofstream out(path, std::ios::out | std::ios::binary | std::ios::trunc);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
  }
  std::remove(path.c_str());
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}
BENCHMARK(copyPreparedToFile)->Unit(benchmark::kMillisecond);

}  // namespace
