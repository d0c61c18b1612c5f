// Seeded random sessions of action and media edits, each through a command,
// checked against the rules of bins and key frames after every step and
// against the states at the ends of the history. The main bin animates the
// scales and the zoom bin the translations, so that the two never share a
// parameter. Set ORV_ACTION_MODEL_SEEDS for a longer soak.

#include "commands/ActionCommandTestSupport.h"

#include "actions/ParameterRange.h"
#include "commands/AddActionCmd.h"
#include "commands/MoveActionCmd.h"
#include "commands/RemoveActionCmd.h"
#include "commands/TrimActionEndCmd.h"
#include "commands/TrimActionStartCmd.h"
#include "media/commands/RemoveMediaCmd.h"
#include "media/commands/SplitMediaCmd.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <random>
#include <vector>

namespace actioncmdtest {
namespace {

using KelMediaLib::Range;

const char* const kParameters[2][2] = {{"scale0", "scale1"}, {"translation0", "translation1"}};

bool overlap(const Range<long long>& a, const Range<long long>& b) {
  return a.intersection(b).duration > 0 || a.end() == b.start || b.end() == a.start;
}

struct Session {
  explicit Session(unsigned int seed) : random(seed) {
    media = {studio.addMedia(0), studio.addMedia(2000)};
    base = studio.project->commandHistory().position();
  }

  long long pick(long long low, long long high) {
    return std::uniform_int_distribution<long long>(low, high)(random);
  }
  boost::shared_ptr<const ActionBin> bin(int which) const {
    return which ? studio.project->zdActionBin() : studio.project->actionBin();
  }
  OrvMediaLib::ActionList listOf(int b, const boost::shared_ptr<const Media>& m) const {
    return *bin(b)->mediasActions(m);
  }
  int nameOf(const boost::shared_ptr<const Action>& action) {
    return names.emplace(action, static_cast<int>(names.size())).first->second;
  }
  std::vector<boost::shared_ptr<const Media>> onTrack() const {
    std::vector<boost::shared_ptr<const Media>> result;
    for (const auto& m : media) {
      if (m->parent()) result.push_back(m);
    }
    return result;
  }
  struct Held {
    boost::shared_ptr<const Media> media;
    int bin;
    boost::shared_ptr<const Action> action;
  };
  std::vector<Held> actions() const {
    std::vector<Held> result;
    for (const auto& m : media) {
      for (int b = 0; b < 2; ++b) {
        for (const auto& action : listOf(b, m)) result.push_back({m, b, action});
      }
    }
    return result;
  }
  template <class T>
  const T& any(const std::vector<T>& among) {
    return among[pick(0, among.size() - 1)];
  }

  /// The first `count` media (all by default), their key frames and actions.
  /// Values to `digits` digits, or none. Undoing an add writes the value that
  /// the start had onto the key frame before it, and between two key frames of
  /// one value the mix of the two may differ from it in the last place. A
  /// range out of its parameter goes on syncing its left value, so that redo
  /// may bring an action back with other values than it first had.
  std::string snapshot(std::size_t count = ~std::size_t(), int digits = 12) {
    std::ostringstream out;
    for (const auto& m : media) {
      if (count-- == 0) break;
      // Where a media off the track stood last is no concern of the actions.
      if (m->parent()) out << "on " << m->range() << ' ' << m->mediaTimeRange();
      out << '\n' << keyFrames(*m, {"scale0", "scale1", "translation0", "translation1"}, digits);
      for (int b = 0; b < 2; ++b) {
        for (const auto& action : listOf(b, m)) {
          out << " bin" << b << " a" << nameOf(action) << action->timeRange();
        }
      }
      out << '\n';
    }
    return out.str();
  }

  void checkInvariants() const {
    const auto& project = *studio.project;
    for (const auto& m : media) {
      for (int b = 0; b < 2; ++b) {
        const auto list = listOf(b, m);
        EXPECT_TRUE(m->parent() || list.empty()) << "a media off the track has its actions away";
        boost::shared_ptr<const Action> previous;
        for (const auto& action : list) {
          EXPECT_FALSE(bin(1 - b)->containsAction(action) ||
                       project.audioActionBin()->containsAction(action));
          EXPECT_EQ(action->parametric(), m);
          if (previous) {
            EXPECT_LT(previous->timeRange().start, action->timeRange().start);
            EXPECT_FALSE(overlap(previous->timeRange(), action->timeRange()));
          }
          previous = action;
        }
        for (const char* name : kParameters[b]) {
          const auto p = parameter(*m, name);
          unsigned int pairs = 0;
          for (const auto& action : list) {
            const auto ranges = action->parameterRanges();
            for (const auto& range : *ranges) {
              EXPECT_EQ(range->timeRange(), action->timeRange());
              if (range->parameter() != p) continue;
              ++pairs;
              EXPECT_EQ(p->keyFrame(range->leftTime()), range->leftKeyframe());
              EXPECT_EQ(p->keyFrame(range->rightTime()), range->rightKeyframe());
            }
          }
          // Off the track the ranges wait in the graveyard: only the parity shows.
          if (!m->parent()) pairs = p->numKeyFrames() / 2;
          const unsigned int extra = p->numKeyFrames() - 2 * pairs;
          EXPECT_TRUE(extra == 0 ? pairs > 0 : extra == 1 && p->hasKeyFrameAt(0))
              << name << ": " << keyFrames(*p);
        }
      }
    }
  }

  void execute(const boost::shared_ptr<OrvMediaLib::OrvCommand>& c) {
    studio.project->orvExecute(c);
  }
  void execute(const boost::shared_ptr<KelMediaLib::Command>& c) { studio.project->execute(c); }
  /// Runs `command`; true if it returned. A failure must leave the model and
  /// the history as they were.
  template <class C>
  bool attempt(const boost::shared_ptr<C>& command, bool expected = true) {
    const std::string before = snapshot();
    const unsigned int position = studio.project->commandHistory().position();
    const std::string message = failure([&] { execute(command); });
    EXPECT_EQ(message.empty(), expected) << message;
    if (!message.empty()) {
      EXPECT_EQ(snapshot(), before);
      EXPECT_EQ(studio.project->commandHistory().position(), position);
    }
    return message.empty();
  }

  void addAction() {
    const auto candidates = onTrack();
    if (candidates.empty()) return;
    const auto m = any(candidates);
    const int b = static_cast<int>(pick(0, 1));
    const Range<long long> source = m->mediaTimeRange();
    const Range<long long> range(pick(source.start, source.end() - 1), pick(1, 150));
    bool free = true;
    for (const auto& action : listOf(b, m)) free &= !overlap(action->timeRange(), range);
    ActionDescription half(ActionDescription::CENTER_ACTION);
    for (const auto& r : zoom(1.0 + 0.25 * pick(1, 4), pick(-50, 50), pick(-50, 50))) {
      if (r.parameterName().compare(0, 5, b ? "trans" : "scale") == 0) half.addParameterRange(r);
    }
    attempt(OrvMediaLib::AddActionCmd::create(m, bin(b), half, range.start, range.duration), free);
  }

  /// Moves or trims one end of an action. A move that would carry the action
  /// across a neighbour isn't tried: its key frames would pass the
  /// neighbour's one by one, and the bin's watch would stop it half way.
  void changeAction(int kind) {
    const auto all = actions();
    if (all.empty()) return;
    const Held held = any(all);
    const Range<long long> now = held.action->timeRange();
    const long long delta = pick(-std::min(now.start, 200LL), 200);
    if (kind == 0) {
      const Range<long long> moved(now.start + delta, now.duration);
      const Range<long long> path(std::min(now.start, moved.start), now.duration + std::abs(delta));
      bool collides = false, crosses = false;
      for (const auto& other : listOf(held.bin, held.media)) {
        if (other == held.action) continue;
        collides |= overlap(other->timeRange(), moved);
        crosses |= path.intersection(other->timeRange()).duration > 0;
      }
      if (!crosses || collides) {
        attempt(OrvMediaLib::MoveActionCmd::create(held.action, delta), !collides);
      }
      return;
    }
    // A trimmed end may come up to, but not onto, its neighbouring key frame.
    const auto p = parameter(*held.media, kParameters[held.bin][0]);
    const long long end = kind == 1 ? now.start : now.end();
    const long long moved = kind == 1 ? end + delta : end - delta;
    const bool fits =
        delta == 0 || (p->prevKeyFrameTime(end) < moved && moved < p->nextKeyFrameTime(end));
    if (kind == 1) {
      attempt(OrvMediaLib::TrimActionStartCmd::create(held.action, delta), fits);
    } else {
      attempt(OrvMediaLib::TrimActionEndCmd::create(held.action, delta), fits);
    }
  }

  void changeMedia() {
    const auto placed = onTrack();
    for (const auto& m : media) {
      if (!m->parent() && (placed.empty() || pick(0, 2) == 0)) {
        attempt(KelMediaLib::AddMediaCmd::create(studio.track, m, pick(0, 5000)));
        return;
      }
    }
    if (placed.empty()) return;
    const auto m = any(placed);
    if (pick(0, 1) || m->range().duration < 2) {
      attempt(KelMediaLib::RemoveMediaCmd::create(studio.track, m));
      return;
    }
    const auto split = KelMediaLib::SplitMediaCmd::create(
        studio.track, m, pick(m->range().start + 1, m->range().end() - 1));
    if (attempt(split)) media.push_back(split->secondPart());
  }

  void step() {
    const auto& project = studio.project;
    const long long what = pick(0, 9);
    if (what < 3) return addAction();
    if (what < 5) return changeAction(static_cast<int>(pick(0, 2)));
    if (what < 7) return changeMedia();
    if (what == 7) {
      const auto all = actions();
      if (!all.empty()) attempt(OrvMediaLib::RemoveActionCmd::create(any(all).action));
    } else if (what == 8 && project->commandHistory().position() > base) {
      project->undo();
    } else if (what == 9 && project->commandHistory().canRedo()) {
      project->redo();
    }
  }

  Studio studio;
  std::mt19937 random;
  std::vector<boost::shared_ptr<const Media>> media;
  std::map<boost::shared_ptr<const Action>, int> names;
  unsigned int base;
};

TEST(ActionModelRandomTest, InvariantsHoldAndTheHistoryWalksBothWays) {
  const char* soak = std::getenv("ORV_ACTION_MODEL_SEEDS");
  const unsigned int seeds = soak ? static_cast<unsigned int>(std::atoi(soak)) : 2000;
  for (unsigned int seed = 1; seed <= seeds && !::testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Session session(seed);
    const std::string initial = session.snapshot();
    for (int i = 0; i < 12 && !::testing::Test::HasFailure(); ++i) {
      session.step();
      session.checkInvariants();
    }
    const auto& project = session.studio.project;
    const std::string last = session.snapshot(~std::size_t(), 0);
    unsigned int undone = 0;
    for (; project->commandHistory().position() > session.base; ++undone) project->undo();
    EXPECT_EQ(session.snapshot(2), initial);
    for (unsigned int i = 0; i < undone; ++i) project->redo();
    EXPECT_EQ(session.snapshot(~std::size_t(), 0), last);
  }
}

}  // namespace
}  // namespace actioncmdtest
