// Cost of the conversions between rates, which every source track and every
// record of a screen recording's metadata goes through (an hour of cursor
// positions at 60 a second is 216,000 records), and of reading a metadata
// file.

#include "core/EditRateConversion.h"
#include "core/ThreadSafe.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/project/InternalProject.h"

#include <benchmark/benchmark.h>

#include <boost/filesystem.hpp>
#include <boost/make_shared.hpp>

#include <fstream>
#include <string>

namespace {

using KelMediaLib::EditRate;

void BM_RescaleSamplesToFilmRate(benchmark::State& state) {
  const EditRate from(48000);
  const EditRate to(24000, 1001);
  long long count = 1;
  for (auto _ : state) {
    benchmark::DoNotOptimize(KelMediaLib::rescaleEditUnits(count, from, to));
    count = count * 3 % 1000000007;
  }
}
BENCHMARK(BM_RescaleSamplesToFilmRate);

void BM_SecondsToNtscUnits(benchmark::State& state) {
  const EditRate rate(30000, 1001);
  double seconds = 0.001;
  for (auto _ : state) {
    benchmark::DoNotOptimize(KelMediaLib::secondsToEditUnits(seconds, rate));
    seconds += 0.0167;
  }
}
BENCHMARK(BM_SecondsToNtscUnits);

// A cursor file of `range(0)` records, 60 a second, read into a parameter.
void BM_ReadCursorLocationFile(benchmark::State& state) {
  const std::string folder =
      (boost::filesystem::temp_directory_path() / "time-conversion-bench").string();
  boost::filesystem::create_directories(folder);
  const std::string file = folder + "/cursorlocation.dat";
  {
    std::ofstream out(file);
    for (long long i = 0; i < state.range(0); ++i) {
      out << i / 60.0 << ' ' << i % 1440 << ' ' << i % 900 << '\n';
    }
  }
  const auto project = KelMediaLib::InternalProject::create(EditRate(30000, 1001));
  for (auto _ : state) {
    const auto metaData = KelMediaLib::ScreenMetaData::create(
        project, boost::weak_ptr<const KelMediaLib::FileRepresentation>(), project);
    metaData->setCursorLocationFile(file);
    benchmark::DoNotOptimize(metaData->hasContent());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
  boost::filesystem::remove_all(folder);
}
BENCHMARK(BM_ReadCursorLocationFile)->Arg(216000)->Unit(benchmark::kMillisecond);

}  // namespace
