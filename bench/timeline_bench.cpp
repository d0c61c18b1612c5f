// Costs of timeline edits through the command history: adding media and
// undoing the additions, and splitting media that carry many key frames.

#include "media/commands/AddMediaCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/commands/SplitMediaCmd.h"
#include "media/media/IMFile.h"
#include "media/project/CommandHistory.h"
#include "media/project/InternalProject.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/timeline/VisualTrack.h"
#include "values/InterpolatingParam.h"

#include <benchmark/benchmark.h>

#include <boost/shared_ptr.hpp>

#include <vector>

namespace {

using namespace KelMediaLib;

struct BenchTimeline {
  BenchTimeline() : project(InternalProject::create(EditRate(30, 1))) {
    project->execute(NewVisualMixerCmd::create(1920, 1080));
    const boost::shared_ptr<NewVisualTrackCmd> newTrack = NewVisualTrackCmd::create(-1);
    project->execute(newTrack);
    track = newTrack->visualTrack();
    source = Source::create(MediaFileStats::create());
  }

  boost::shared_ptr<IMFile> image(long long duration) const {
    return IMFile::create(0, duration, boost::weak_ptr<const ThreadSafe>(project), source, 0);
  }

  boost::shared_ptr<InternalProject> project;
  boost::shared_ptr<const VisualTrack> track;
  boost::shared_ptr<const Source> source;
};

// Adds n media one after the other by command, then undoes every addition.
void addAndUndo(benchmark::State& state) {
  const long long n = state.range(0);
  BenchTimeline timeline;
  std::vector<boost::shared_ptr<IMFile>> medias;
  for (long long i = 0; i < n; ++i) {
    medias.push_back(timeline.image(10));
  }
  for (auto _ : state) {
    for (long long i = 0; i < n; ++i) {
      timeline.project->execute(
          AddMediaCmd::create(timeline.track, medias[static_cast<std::size_t>(i)], i * 10));
    }
    for (long long i = 0; i < n; ++i) {
      timeline.project->undo();
    }
  }
  state.SetComplexityN(n);
}
BENCHMARK(addAndUndo)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->Complexity();

// Splits each of n media, each with 100 key frames on its opacity, in its
// middle. The timeline is built and torn down outside the timing.
void splitMediaWithKeyFrames(benchmark::State& state) {
  const long long n = state.range(0);
  for (auto _ : state) {
    state.PauseTiming();
    BenchTimeline timeline;
    std::vector<boost::shared_ptr<IMFile>> medias;
    for (long long i = 0; i < n; ++i) {
      const boost::shared_ptr<IMFile> media = timeline.image(200);
      for (long long t = 0; t < 200; t += 2) {
        media->opacity()->addKeyFrame(t, static_cast<double>(t) / 200);
      }
      timeline.project->execute(AddMediaCmd::create(timeline.track, media, i * 200));
      medias.push_back(media);
    }
    state.ResumeTiming();
    for (long long i = 0; i < n; ++i) {
      timeline.project->execute(SplitMediaCmd::create(
          timeline.track, medias[static_cast<std::size_t>(i)], i * 200 + 100));
    }
    // Tearing the timeline down is left out of the timing as well.
    state.PauseTiming();
    medias.clear();
    timeline = BenchTimeline();
    state.ResumeTiming();
  }
  state.SetComplexityN(n);
}
BENCHMARK(splitMediaWithKeyFrames)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Complexity();

}  // namespace
