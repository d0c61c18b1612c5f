// Cost of a global parameter change (every key frame shifted by one delta,
// each shift a member command run under the parameter iterators' read locks)
// and of its undo, on a media of a project, as the parameter grows. The
// parameter is built once per run with key frames every 10 time units; each
// timed change is undone (or each timed undo redone) untimed, so the size and
// the history stay put.

#include "commands/CascadingOrvChangeParameterCmd.h"
#include "media/commands/AddMediaCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/media/TextBox.h"
#include "media/timeline/VisualTrack.h"
#include "project/InternalOrvProject.h"
#include "project/OrvProject.h"
#include "values/InterpolatingParam.h"

#include <benchmark/benchmark.h>

#include <boost/pointer_cast.hpp>
#include <boost/shared_ptr.hpp>

namespace {

using KelMediaLib::InterpolatingParam;
using OrvMediaLib::InternalOrvProject;

const long long kSpacing = 10;

struct Setup {
  boost::shared_ptr<InternalOrvProject> project;
  boost::shared_ptr<const KelMediaLib::Media> media;
  boost::shared_ptr<InterpolatingParam<double>> opacity;

  explicit Setup(long long count) {
    project =
        boost::dynamic_pointer_cast<InternalOrvProject>(OrvMediaLib::OrvProject::create(30, 1));
    project->execute(KelMediaLib::NewVisualMixerCmd::create(640, 480));
    const auto track = KelMediaLib::NewVisualTrackCmd::create(0);
    project->execute(track);
    media = KelMediaLib::TextBox::create("text", count * kSpacing, 100.0f, 100.0f, project);
    project->execute(KelMediaLib::AddMediaCmd::create(track->visualTrack(), media, 0));
    opacity =
        boost::dynamic_pointer_cast<InterpolatingParam<double>>(media->parameterNamed("opacity"));
    for (long long i = 1; i < count; ++i) {
      opacity->addKeyFrame(i * kSpacing, 0.5);
    }
  }

  void change() {
    project->orvExecute(OrvMediaLib::CascadingOrvChangeParameterCmd::createWithDelta(
        project->actionBin(), media, opacity, 0, 0.125));
  }
};

void BM_GlobalChange(benchmark::State& state) {
  Setup setup(state.range(0));
  for (auto _ : state) {
    setup.change();
    state.PauseTiming();
    setup.project->undo();
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_GlobalChange)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Complexity();

void BM_GlobalChangeUndo(benchmark::State& state) {
  Setup setup(state.range(0));
  setup.change();
  for (auto _ : state) {
    setup.project->undo();
    state.PauseTiming();
    setup.project->redo();
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_GlobalChangeUndo)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

}  // namespace
