// Cost of loading a project file: text boxes on one track, each with 10 key
// frames on its opacity and a centre action on its x scale, written once and
// then read by the project reader; for comparison, a bare Expat parse of the
// same bytes with empty callbacks. Bytes per second are shown for both.

#include "actions/ActionDescription.h"
#include "actions/OrigToModified.h"
#include "actions/ScaleTransform.h"
#include "commands/AddActionCmd.h"
#include "media/commands/AddMediaCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/media/TextBox.h"
#include "media/project/ProjectWriter.h"
#include "media/timeline/VisualTrack.h"
#include "parser/OrvParser.h"
#include "project/OrvProject.h"
#include "values/AddParameterKeyFrameCmd.h"
#include "values/InterpolatingParam.h"

#include <benchmark/benchmark.h>
#include <expat.h>

#include <sstream>
#include <string>

namespace {

using namespace KelMediaLib;

std::string document(int medias) {
  const auto project = OrvMediaLib::OrvProject::create(30, 1);
  project->execute(NewVisualMixerCmd::create(640, 480));
  const auto track = NewVisualTrackCmd::create(-1);
  project->execute(track);
  OrvMediaLib::ActionDescription zoom(OrvMediaLib::ActionDescription::CENTER_ACTION);
  zoom.addParameterRange(
      {"scale0", OrvMediaLib::OrigToModified(), OrvMediaLib::ScaleTransform(), 2.0});
  for (int i = 0; i < medias; ++i) {
    const auto box = TextBox::create("box", 300, 100, 50, project);
    project->execute(AddMediaCmd::create(track->visualTrack(), box, 300LL * i));
    for (int k = 1; k <= 10; ++k) {
      project->execute(boost::make_shared<AddParameterKeyFrameCmd<Parameter<double>>>(
          box->opacity(), 20 * k, 0.1 * k));
    }
    project->orvExecute(
        OrvMediaLib::AddActionCmd::create(box, project->actionBin(), zoom, 50, 100));
  }
  std::ostringstream out;
  ProjectWriter::write(*project, out);
  return out.str();
}

void BM_ReadProject(benchmark::State& state) {
  const std::string text = document(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::istringstream in(text);
    OrvMediaLib::OrvParser parser(nullptr, nullptr);
    benchmark::DoNotOptimize(parser.parseProject(in));
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                          static_cast<int64_t>(text.size()));
}

void BM_BareExpat(benchmark::State& state) {
  const std::string text = document(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    XML_Parser parser = XML_ParserCreate("UTF-8");
    XML_SetElementHandler(
        parser, [](void*, const XML_Char*, const XML_Char**) {}, [](void*, const XML_Char*) {});
    benchmark::DoNotOptimize(
        XML_Parse(parser, text.data(), static_cast<int>(text.size()), XML_TRUE));
    XML_ParserFree(parser);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                          static_cast<int64_t>(text.size()));
}

BENCHMARK(BM_ReadProject)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BareExpat)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace
