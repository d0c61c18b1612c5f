// Cost of the key frame operations of parameters as they grow. Each benchmark
// builds its parameter once, outside the timed loop, with key frames every 10
// time units, and sweeps the operation along the key frames so that it meets
// every part of the parameter. Edits come in pairs that leave the parameter as
// it was, so the size stays what the argument says.
//
// A sweep repeats after `count` operations, and at 1,000 key frames the branch
// predictor learns the whole round: the lookups are then cheaper than any that
// an application makes. The scattered variants draw the key frames at random,
// which no predictor foresees.

#include "core/ThreadSafe.h"
#include "values/InterpolatingParam.h"
#include "values/Parameter.h"
#include "values/ParameterIterator.h"

#include <benchmark/benchmark.h>

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

namespace {

using KelMediaLib::InterpolatingParam;
using KelMediaLib::Parameter;
using KelMediaLib::ThreadSafe;

const long long kSpacing = 10;

struct Plain {
  static boost::shared_ptr<Parameter<double>> make(const boost::shared_ptr<ThreadSafe>& project) {
    return Parameter<double>::create(project, "opacity", 0.0);
  }
};

struct Interpolating {
  static boost::shared_ptr<Parameter<double>> make(const boost::shared_ptr<ThreadSafe>& project) {
    return InterpolatingParam<double>::create(project, "scale", 0.0);
  }
};

template <class Kind>
boost::shared_ptr<Parameter<double>> build(const boost::shared_ptr<ThreadSafe>& project,
                                           long long count) {
  const auto parameter = Kind::make(project);
  for (long long i = 1; i < count; ++i) {
    parameter->addKeyFrame(i * kSpacing, static_cast<double>(i % 7));
  }
  return parameter;
}

// Cycles 0, 1, ..., count - 1.
class Sweep {
 public:
  explicit Sweep(long long count) : count_(count), i_(0) {}
  long long next() {
    const long long current = i_;
    i_ = i_ + 1 == count_ ? 0 : i_ + 1;
    return current;
  }

 private:
  long long count_;
  long long i_;
};

// Draws from 0, 1, ..., count - 1 at random (xorshift), without a period that
// matters here.
class Scatter {
 public:
  explicit Scatter(long long count)
      : count_(static_cast<unsigned long long>(count)), state_(0x9E3779B97F4A7C15ULL) {}
  long long next() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 7;
    state_ ^= state_ << 17;
    return static_cast<long long>(state_ % count_);
  }

 private:
  unsigned long long count_;
  unsigned long long state_;
};

template <class Kind>
void BM_AddRemove(benchmark::State& state) {
  const auto project = boost::make_shared<ThreadSafe>();
  const long long count = state.range(0);
  const auto parameter = build<Kind>(project, count);
  Sweep sweep(count);
  for (auto _ : state) {
    const long long time = sweep.next() * kSpacing + kSpacing / 2;
    parameter->addKeyFrame(time, 1.0);
    benchmark::DoNotOptimize(parameter->removeKeyFrame(time));
  }
  state.SetItemsProcessed(state.iterations() * 2);
}

template <class Kind>
void BM_Move(benchmark::State& state) {
  const auto project = boost::make_shared<ThreadSafe>();
  const long long count = state.range(0);
  const auto parameter = build<Kind>(project, count);
  Sweep sweep(count);
  for (auto _ : state) {
    const long long time = sweep.next() * kSpacing;
    parameter->moveKeyFrame(time, time + kSpacing / 2);
    parameter->moveKeyFrame(time + kSpacing / 2, time);
  }
  state.SetItemsProcessed(state.iterations() * 2);
}

template <class Kind, class Order>
void valueAt(benchmark::State& state) {
  const auto project = boost::make_shared<ThreadSafe>();
  const long long count = state.range(0);
  const auto parameter = build<Kind>(project, count);
  Order order(count);
  for (auto _ : state) {
    const double time = static_cast<double>(order.next() * kSpacing) + 2.5;
    benchmark::DoNotOptimize(parameter->valueAt(time));
  }
  state.SetItemsProcessed(state.iterations());
}

template <class Kind, class Order>
void neighbours(benchmark::State& state) {
  const auto project = boost::make_shared<ThreadSafe>();
  const long long count = state.range(0);
  const auto parameter = build<Kind>(project, count);
  Order order(count);
  for (auto _ : state) {
    const long long time = order.next() * kSpacing;
    benchmark::DoNotOptimize(parameter->prevKeyFrameTime(time));
    benchmark::DoNotOptimize(parameter->nextKeyFrameTime(time));
  }
  state.SetItemsProcessed(state.iterations() * 2);
}

template <class Kind>
void BM_ValueAt(benchmark::State& state) {
  valueAt<Kind, Sweep>(state);
}
template <class Kind>
void BM_ValueAtScattered(benchmark::State& state) {
  valueAt<Kind, Scatter>(state);
}
template <class Kind>
void BM_Neighbours(benchmark::State& state) {
  neighbours<Kind, Sweep>(state);
}
template <class Kind>
void BM_NeighboursScattered(benchmark::State& state) {
  neighbours<Kind, Scatter>(state);
}

// One whole pass per iteration; items are key frames visited.
template <class Kind>
void BM_Iterate(benchmark::State& state) {
  const auto project = boost::make_shared<ThreadSafe>();
  const auto parameter = build<Kind>(project, state.range(0));
  for (auto _ : state) {
    double sum = 0;
    const auto end = parameter->end();
    for (auto it = parameter->begin(); it != end; ++it) {
      sum += (*it).second;
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK_TEMPLATE(BM_AddRemove, Plain)->Arg(1000)->Arg(100000);
BENCHMARK_TEMPLATE(BM_AddRemove, Interpolating)->Arg(1000)->Arg(100000);
BENCHMARK_TEMPLATE(BM_Move, Plain)->Arg(1000)->Arg(100000);
BENCHMARK_TEMPLATE(BM_Move, Interpolating)->Arg(1000)->Arg(100000);
BENCHMARK_TEMPLATE(BM_ValueAt, Plain)->Arg(1000)->Arg(100000);
BENCHMARK_TEMPLATE(BM_ValueAt, Interpolating)->Arg(1000)->Arg(100000);
BENCHMARK_TEMPLATE(BM_Neighbours, Plain)->Arg(1000)->Arg(100000);
BENCHMARK_TEMPLATE(BM_Neighbours, Interpolating)->Arg(1000)->Arg(100000);
BENCHMARK_TEMPLATE(BM_ValueAtScattered, Plain)->Arg(1000)->Arg(100000);
BENCHMARK_TEMPLATE(BM_ValueAtScattered, Interpolating)->Arg(1000)->Arg(100000);
BENCHMARK_TEMPLATE(BM_NeighboursScattered, Plain)->Arg(1000)->Arg(100000);
BENCHMARK_TEMPLATE(BM_Iterate, Plain)->Arg(100000);
BENCHMARK_TEMPLATE(BM_Iterate, Interpolating)->Arg(100000);

}  // namespace
