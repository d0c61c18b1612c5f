// Projects at scale: the generator's projects of 100, 1,000 and 10,000 media
// loaded, saved and edited, each beside the cost it is measured against, in
// one program so that the ratios come from one run on one machine state.
//
// - Load against a bare Expat parse of the same bytes (no-op handlers, 1 KiB
//   blocks, as the reader feeds Expat); load's growth from 1,000 to 10,000.
// - Save of the loaded project to a string and to a file against writing the
//   same bytes from a prepared string.
// - Peak memory of a load: the most the heap held above what it held when
//   the load began, counted by this program's operator new; and what the
//   model read keeps.
// - Edits of one media and one action on the 10,000-media project against
//   the same edit on the 100-media one, each undone in the same iteration.
//
// At the end the ratios are printed as a table, each with its target.

#include "ProjectGenerator.h"

#include "actions/Action.h"
#include "actions/ActionBin.h"
#include "commands/MoveActionCmd.h"
#include "commands/RemoveActionCmd.h"
#include "commands/TrimActionEndCmd.h"
#include "commands/TrimActionStartCmd.h"
#include "media/commands/MoveMediaCmd.h"
#include "media/commands/RemoveMediaCmd.h"
#include "media/commands/SplitMediaCmd.h"
#include "media/commands/TrimEndCmd.h"
#include "media/commands/TrimStartCmd.h"
#include "media/media/VisualMedia.h"
#include "media/project/ProjectWriter.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/VisualMixer.h"
#include "media/timeline/VisualTrack.h"
#include "parser/OrvParser.h"
#include "project/OrvProject.h"
#include "values/AddParameterKeyFrameCmd.h"
#include "values/InterpolatingParam.h"

#include <benchmark/benchmark.h>
#include <expat.h>

#include <boost/filesystem.hpp>
#include <boost/make_shared.hpp>

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iomanip>
#include <iostream>
#include <map>
#include <new>
#include <sstream>
#include <string>
#include <vector>

// The heap as this program's operator new sees it. The library allocates
// through operator new too; Expat's own mallocs are not counted.
namespace {
std::size_t heapLive = 0;
std::size_t heapPeak = 0;

void* countedAllocation(std::size_t size) {
  void* block = std::malloc(size == 0 ? 1 : size);
  if (!block) {
    throw std::bad_alloc();
  }
  heapLive += malloc_usable_size(block);
  heapPeak = std::max(heapPeak, heapLive);
  return block;
}

void countedRelease(void* block) {
  if (block) {
    heapLive -= malloc_usable_size(block);
    std::free(block);
  }
}
}  // namespace

void* operator new(std::size_t size) {
  return countedAllocation(size);
}
void* operator new[](std::size_t size) {
  return countedAllocation(size);
}
void operator delete(void* block) noexcept {
  countedRelease(block);
}
void operator delete[](void* block) noexcept {
  countedRelease(block);
}
void operator delete(void* block, std::size_t) noexcept {
  countedRelease(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  countedRelease(block);
}

namespace {

using namespace KelMediaLib;
using OrvMediaLib::OrvProject;

const double kMiB = 1024.0 * 1024.0;

const std::string& document(int medias) {
  static std::map<int, std::string> documents;
  std::string& text = documents[medias];
  if (text.empty()) {
    text = OrvBench::ProjectGenerator::document(medias);
  }
  return text;
}

// Reads the bytes of a string in place: a load is measured from the bytes,
// as the bare parse is, without a copy of the document into a stream first.
class StringView : public std::streambuf {
 public:
  explicit StringView(const std::string& text) {
    char* begin = const_cast<char*>(text.data());
    setg(begin, begin, begin + text.size());
  }
};

boost::shared_ptr<OrvProject> load(const std::string& text) {
  StringView bytes(text);
  std::istream in(&bytes);
  OrvMediaLib::OrvParser parser(nullptr, nullptr);
  return parser.parseProject(in);
}

// The project read from the generator's document, kept for the benchmarks
// that save or edit it.
const boost::shared_ptr<OrvProject>& loaded(int medias) {
  static std::map<int, boost::shared_ptr<OrvProject>> projects;
  boost::shared_ptr<OrvProject>& project = projects[medias];
  if (!project) {
    project = load(document(medias));
  }
  return project;
}

std::string scratchFile() {
  return (boost::filesystem::temp_directory_path() /
          boost::filesystem::unique_path("scale-bench-%%%%%%.xml"))
      .string();
}

void setBytes(benchmark::State& state, const std::string& text) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                          static_cast<int64_t>(text.size()));
}

void bareExpat(benchmark::State& state) {
  const std::string& text = document(static_cast<int>(state.range(0)));
  const std::size_t block = 1024;
  for (auto _ : state) {
    XML_Parser parser = XML_ParserCreate("UTF-8");
    XML_SetElementHandler(
        parser, [](void*, const XML_Char*, const XML_Char**) {}, [](void*, const XML_Char*) {});
    for (std::size_t at = 0; at < text.size(); at += block) {
      const std::size_t count = std::min(block, text.size() - at);
      const bool last = at + count == text.size();
      if (XML_Parse(parser, text.data() + at, static_cast<int>(count), last) != XML_STATUS_OK) {
        state.SkipWithError("Expat refused the document");
        break;
      }
    }
    XML_ParserFree(parser);
  }
  setBytes(state, text);
}

void loadProject(benchmark::State& state) {
  const std::string& text = document(static_cast<int>(state.range(0)));
  std::size_t peak = 0;
  std::size_t kept = 0;
  for (auto _ : state) {
    const std::size_t before = heapLive;
    heapPeak = heapLive;
    boost::shared_ptr<OrvProject> project = load(text);
    peak = std::max(peak, heapPeak - before);
    kept = heapLive - before;
    // Freeing the project is not part of the load.
    state.PauseTiming();
    project.reset();
    state.ResumeTiming();
  }
  setBytes(state, text);
  state.counters["peak_MiB"] = static_cast<double>(peak) / kMiB;
  state.counters["model_MiB"] = static_cast<double>(kept) / kMiB;
}

void saveToString(benchmark::State& state) {
  const int medias = static_cast<int>(state.range(0));
  const OrvProject& project = *loaded(medias);
  for (auto _ : state) {
    std::ostringstream out;
    ProjectWriter::write(project, out);
    benchmark::DoNotOptimize(out.tellp());
  }
  setBytes(state, document(medias));
}

void copyToString(benchmark::State& state) {
  const std::string& text = document(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::ostringstream out;
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    benchmark::DoNotOptimize(out.tellp());
  }
  setBytes(state, text);
}

void saveToFile(benchmark::State& state) {
  const int medias = static_cast<int>(state.range(0));
  const OrvProject& project = *loaded(medias);
  const std::string path = scratchFile();
  for (auto _ : state) {
    ProjectWriter::write(project, path);
  }
  std::remove(path.c_str());
  setBytes(state, document(medias));
}

void copyToFile(benchmark::State& state) {
  const std::string& text = document(static_cast<int>(state.range(0)));
  const std::string path = scratchFile();
  for (auto _ : state) {
    std::ofstream out(path, std::ios::out | std::ios::binary | std::ios::trunc);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
  }
  std::remove(path.c_str());
  setBytes(state, text);
}

// What an edit works on: the media in the middle of the first track of a
// loaded project, its track and its action.
struct EditTarget {
  explicit EditTarget(int medias) : project(loaded(medias)) {
    track = project->timeline()->visualMixer()->trackAt(0);
    const std::vector<boost::shared_ptr<const Media>> onTrack = track->medias();
    media = onTrack.at(onTrack.size() / 2);
    action = project->actionBin()->mediasActions(media.get())->front();
  }

  boost::shared_ptr<OrvProject> project;
  boost::shared_ptr<const Track> track;
  boost::shared_ptr<const Media> media;
  boost::shared_ptr<const OrvMediaLib::Action> action;
};

void run(OrvProject& project, const boost::shared_ptr<Command>& command) {
  project.execute(command);
}

void run(OrvProject& project, const boost::shared_ptr<OrvMediaLib::OrvCommand>& command) {
  project.orvExecute(command);
}

// Runs the command that `make` gives and undoes it, once an iteration.
template <class Make>
void editAndUndo(benchmark::State& state, Make make) {
  const EditTarget target(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    run(*target.project, make(target));
    target.project->undo();
  }
}

void splitMedia(benchmark::State& state) {
  editAndUndo(state, [](const EditTarget& t) {
    return SplitMediaCmd::create(t.track, t.media, t.media->range().start + 150);
  });
}

void moveMedia(benchmark::State& state) {
  editAndUndo(state, [](const EditTarget& t) { return MoveMediaCmd::create(t.track, t.media, 7); });
}

void trimMediaStart(benchmark::State& state) {
  editAndUndo(state,
              [](const EditTarget& t) { return TrimStartCmd::create(t.track, t.media, 20); });
}

void trimMediaEnd(benchmark::State& state) {
  editAndUndo(state, [](const EditTarget& t) { return TrimEndCmd::create(t.track, t.media, 20); });
}

void removeMedia(benchmark::State& state) {
  editAndUndo(state, [](const EditTarget& t) { return RemoveMediaCmd::create(t.track, t.media); });
}

void moveAction(benchmark::State& state) {
  editAndUndo(state, [](const EditTarget& t) {
    return boost::shared_ptr<OrvMediaLib::OrvCommand>(
        OrvMediaLib::MoveActionCmd::create(t.action, 10));
  });
}

void trimActionStart(benchmark::State& state) {
  editAndUndo(state, [](const EditTarget& t) {
    return boost::shared_ptr<OrvMediaLib::OrvCommand>(
        OrvMediaLib::TrimActionStartCmd::create(t.action, 10));
  });
}

void trimActionEnd(benchmark::State& state) {
  editAndUndo(state, [](const EditTarget& t) {
    return boost::shared_ptr<OrvMediaLib::OrvCommand>(
        OrvMediaLib::TrimActionEndCmd::create(t.action, -10));
  });
}

void removeAction(benchmark::State& state) {
  editAndUndo(state, [](const EditTarget& t) {
    return boost::shared_ptr<OrvMediaLib::OrvCommand>(
        OrvMediaLib::RemoveActionCmd::create(t.action));
  });
}

// 1,000 key frames added to the opacity of one media, one command each, past
// the generator's own key frames; then all undone.
void addKeyFrames(benchmark::State& state) {
  const EditTarget target(static_cast<int>(state.range(0)));
  const auto opacity = boost::dynamic_pointer_cast<const VisualMedia>(target.media)->opacity();
  const long long first = OrvBench::ProjectGenerator::kMediaDuration;
  for (auto _ : state) {
    for (long long k = 0; k < 1000; ++k) {
      target.project->execute(
          boost::make_shared<AddParameterKeyFrameCmd<Parameter<double>>>(opacity, first + k, 0.5));
    }
    for (int k = 0; k < 1000; ++k) {
      target.project->undo();
    }
  }
}

const int kSizes[] = {100, 1000, 10000};

void sizes(benchmark::internal::Benchmark* b) {
  for (const int n : kSizes) {
    b->Arg(n);
  }
  b->Unit(benchmark::kMillisecond);
}

void ends(benchmark::internal::Benchmark* b) {
  b->Arg(100)->Arg(10000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(bareExpat)->Apply(sizes);
BENCHMARK(loadProject)->Apply(sizes);
BENCHMARK(saveToString)->Apply(sizes);
BENCHMARK(copyToString)->Apply(sizes);
BENCHMARK(saveToFile)->Apply(sizes);
BENCHMARK(copyToFile)->Apply(sizes);
BENCHMARK(splitMedia)->Apply(ends);
BENCHMARK(moveMedia)->Apply(ends);
BENCHMARK(trimMediaStart)->Apply(ends);
BENCHMARK(trimMediaEnd)->Apply(ends);
BENCHMARK(removeMedia)->Apply(ends);
BENCHMARK(moveAction)->Apply(ends);
BENCHMARK(trimActionStart)->Apply(ends);
BENCHMARK(trimActionEnd)->Apply(ends);
BENCHMARK(removeAction)->Apply(ends);
BENCHMARK(addKeyFrames)->Apply(ends);

// Keeps each run's processor time per iteration (in nanoseconds) and
// counters while the console shows them as usual.
class Collector : public benchmark::ConsoleReporter {
 public:
  struct Result {
    double nanoseconds;
    std::map<std::string, double> counters;
  };

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred) {
        continue;
      }
      const double ns =
          run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit) * 1e9;
      Result& result = results_[run.benchmark_name()];
      // Repetitions keep their best.
      if (result.nanoseconds == 0 || ns < result.nanoseconds) {
        result.nanoseconds = ns;
      }
      for (const auto& counter : run.counters) {
        result.counters[counter.first] = counter.second.value;
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }

  const Result* find(const std::string& name) const {
    const auto found = results_.find(name);
    return found == results_.end() ? nullptr : &found->second;
  }

 private:
  std::map<std::string, Result> results_;
};

// One line of the table: ours against the reference, with the most the
// ratio may be.
struct Row {
  std::string name;
  double ours;
  double reference;
  std::string unit;
  double most;
};

std::string figure(double value, const std::string& unit) {
  std::ostringstream text;
  if (unit == "ns") {
    const char* units[] = {"ns", "us", "ms", "s"};
    int u = 0;
    while (value >= 1000 && u < 3) {
      value /= 1000;
      ++u;
    }
    text << std::setprecision(3) << value << ' ' << units[u];
  } else {
    text << std::setprecision(4) << value << ' ' << unit;
  }
  return text.str();
}

void printTable(const Collector& results) {
  std::vector<Row> rows;
  const auto time = [&results](const std::string& name) {
    const Collector::Result* result = results.find(name);
    return result ? result->nanoseconds : 0.0;
  };
  const auto pair = [&](const std::string& name, const std::string& ours,
                        const std::string& reference, double most) {
    rows.push_back({name, time(ours), time(reference), "ns", most});
  };
  for (const int n : kSizes) {
    const std::string arg = "/" + std::to_string(n);
    pair("load" + arg + " / bare Expat", "loadProject" + arg, "bareExpat" + arg, 5);
  }
  pair("load growth 1,000 -> 10,000", "loadProject/10000", "loadProject/1000", 12);
  pair("load growth 100 -> 1,000", "loadProject/1000", "loadProject/100", 12);
  for (const int n : kSizes) {
    const std::string arg = "/" + std::to_string(n);
    pair("save to string" + arg + " / copy", "saveToString" + arg, "copyToString" + arg, 3);
    pair("save to file" + arg + " / copy", "saveToFile" + arg, "copyToFile" + arg, 3);
  }
  const Collector::Result* load = results.find("loadProject/10000");
  if (load && load->counters.count("peak_MiB")) {
    rows.push_back({"load/10000 peak memory", load->counters.at("peak_MiB"), 150, "MiB", 1});
  }
  const char* edits[] = {"splitMedia",   "moveMedia",   "trimMediaStart",  "trimMediaEnd",
                         "removeMedia",  "moveAction",  "trimActionStart", "trimActionEnd",
                         "removeAction", "addKeyFrames"};
  for (const char* edit : edits) {
    pair(std::string(edit) + " 10,000 / 100 media", std::string(edit) + "/10000",
         std::string(edit) + "/100", 10);
  }

  std::cout << "\n"
            << std::left << std::setw(36) << "measure" << std::right << std::setw(12) << "ours"
            << std::setw(12) << "reference" << std::setw(9) << "ratio" << std::setw(9) << "target"
            << "\n";
  for (const Row& row : rows) {
    if (row.ours == 0 || row.reference == 0) {
      continue;  // not run (filtered out)
    }
    const double ratio = row.ours / row.reference;
    std::ostringstream ratioText, target;
    ratioText << std::fixed << std::setprecision(2) << ratio;
    target << "<= " << row.most;
    std::cout << std::left << std::setw(36) << row.name << std::right << std::setw(12)
              << figure(row.ours, row.unit) << std::setw(12) << figure(row.reference, row.unit)
              << std::setw(9) << ratioText.str() << std::setw(9) << target.str()
              << (ratio <= row.most ? "" : "  MISSED") << "\n";
  }
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 1;
  }
  Collector collector;
  benchmark::RunSpecifiedBenchmarks(&collector);
  printTable(collector);
  benchmark::Shutdown();
  return 0;
}
