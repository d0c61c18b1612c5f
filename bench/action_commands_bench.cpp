// Costs of action edits through the project's history: n zooms added to one
// media by command, all removed by command, then every command undone and
// redone. "edit" is the time of one of those 4n edits: a key frame change
// reaches only the ranges it concerns and an action change only the
// action's neighbours, so it should barely grow with n.

#include "actions/ActionBin.h"
#include "actions/ActionDescription.h"
#include "actions/OrigToModified.h"
#include "actions/ScaleTransform.h"
#include "actions/TranslateTransform.h"
#include "commands/AddActionCmd.h"
#include "commands/RemoveActionCmd.h"
#include "media/commands/AddMediaCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/media/TextBox.h"
#include "media/timeline/VisualTrack.h"
#include "project/OrvProject.h"

#include <benchmark/benchmark.h>

#include <boost/shared_ptr.hpp>

#include <vector>

namespace {

using namespace OrvMediaLib;

ActionDescription zoom() {
  ActionDescription description(ActionDescription::CENTER_ACTION);
  const OrigToModified rise;
  description.addParameterRange({"scale0", rise, ScaleTransform(), 2.0});
  description.addParameterRange({"scale1", rise, ScaleTransform(), 2.0});
  description.addParameterRange({"translation0", rise, TranslateTransform(), 10.0});
  description.addParameterRange({"translation1", rise, TranslateTransform(), -10.0});
  return description;
}

// A project with one text box long enough for n actions of 5 edit units, 10 apart.
struct BenchProject {
  explicit BenchProject(long long n) : project(OrvProject::create(30, 1)) {
    project->execute(KelMediaLib::NewVisualMixerCmd::create(1920, 1080));
    const auto newTrack = KelMediaLib::NewVisualTrackCmd::create(0);
    project->execute(newTrack);
    media = KelMediaLib::TextBox::create("text", n * 10, 100.0f, 100.0f, project);
    project->execute(KelMediaLib::AddMediaCmd::create(newTrack->visualTrack(), media, 0));
  }

  boost::shared_ptr<OrvProject> project;
  boost::shared_ptr<const KelMediaLib::Media> media;
};

void addRemoveUndoRedo(benchmark::State& state) {
  const long long n = state.range(0);
  const ActionDescription description = zoom();
  for (auto _ : state) {
    state.PauseTiming();
    BenchProject bench(n);
    const auto bin = bench.project->actionBin();
    state.ResumeTiming();
    std::vector<boost::shared_ptr<AddActionCmd>> adds;
    for (long long i = 0; i < n; ++i) {
      adds.push_back(AddActionCmd::create(bench.media, bin, description, i * 10, 5));
      bench.project->orvExecute(adds.back());
    }
    for (const auto& add : adds) {
      bench.project->orvExecute(RemoveActionCmd::create(add->createdAction()));
    }
    for (long long i = 0; i < 2 * n; ++i) bench.project->undo();
    for (long long i = 0; i < 2 * n; ++i) bench.project->redo();
    // The project and its history go outside the timing.
    state.PauseTiming();
    adds.clear();
    bench = BenchProject(0);
    state.ResumeTiming();
  }
  state.SetComplexityN(n);
  state.counters["edit"] = benchmark::Counter(
      4.0 * static_cast<double>(n),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(addRemoveUndoRedo)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

}  // namespace
