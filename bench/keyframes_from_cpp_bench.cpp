// The C++ side of the Python bindings' overhead: 10,000 key frames added to a
// text box's opacity, each by a command through the project's history, as an
// application in C++ does it. bench/keyframes_from_python.py does the same
// through the Python module; the difference per key frame is what a call
// from Python costs.

#include "media/commands/AddMediaCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/media/TextBox.h"
#include "media/timeline/VisualTrack.h"
#include "project/OrvProject.h"
#include "values/AddParameterKeyFrameCmd.h"
#include "values/InterpolatingParam.h"

#include <benchmark/benchmark.h>

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

namespace {

const long long kKeyFrames = 10000;

void addKeyFramesByCommand(benchmark::State& state) {
  typedef KelMediaLib::Parameter<double> Parameter;
  // Kept across iterations so that each project is destroyed outside the timed part.
  boost::shared_ptr<OrvMediaLib::OrvProject> project;
  for (auto _ : state) {
    state.PauseTiming();
    project = OrvMediaLib::OrvProject::create(30, 1);
    project->execute(KelMediaLib::NewVisualMixerCmd::create(1280, 720));
    const auto newTrack = KelMediaLib::NewVisualTrackCmd::create(-1);
    project->execute(newTrack);
    const auto title = KelMediaLib::TextBox::create("Hello", kKeyFrames * 10, 320, 60, project);
    project->execute(KelMediaLib::AddMediaCmd::create(newTrack->visualTrack(), title, 0));
    const boost::shared_ptr<const Parameter> opacity = title->opacity();
    state.ResumeTiming();
    for (long long i = 1; i <= kKeyFrames; ++i) {
      project->execute(boost::make_shared<KelMediaLib::AddParameterKeyFrameCmd<Parameter>>(
          opacity, i * 10, static_cast<double>(i % 2)));
    }
    benchmark::DoNotOptimize(opacity->numKeyFrames());
  }
  state.SetItemsProcessed(state.iterations() * kKeyFrames);
}
BENCHMARK(addKeyFramesByCommand)->Unit(benchmark::kMillisecond);

}  // namespace
