// A parameter notes in the edit journal only the places an edit touches; the
// journal must still give back exactly the key frame objects, times and
// values from before and after the edit.

#include "core/EditJournal.h"
#include "values/KeyFrame.h"
#include "values/Parameter.h"
#include "values/ParameterTestSupport.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <functional>
#include <string>
#include <vector>

using KelMediaLib::EditJournal;
using KelMediaLib::KeyFrame;
using KelMediaLib::Parameter;
using parameterTests::keyFrameText;

namespace {

typedef Parameter<double> P;

// The key frame objects in order with their times and values.
struct Snapshot {
  explicit Snapshot(const P& parameter)
      : objects(parameter.keyFrames()), text(keyFrameText(parameter)) {
    for (const auto& keyFrame : objects) {
      times.push_back(keyFrame->time());
    }
  }
  std::vector<P::KeyFramePtr> objects;
  std::vector<long long> times;
  std::string text;
};

void expectSame(const Snapshot& expected, const P& parameter) {
  const Snapshot now(parameter);
  EXPECT_EQ(expected.text, now.text);
  EXPECT_EQ(expected.objects, now.objects);
  EXPECT_EQ(expected.times, now.times);
}

TEST(ParameterJournalTest, UndoAndRedoGiveBackTheSameKeyFrames) {
  const struct {
    const char* edit;
    std::function<void(P&)> run;
  } rows[] = {
      {"add", [](P& p) { p.addKeyFrame(15, 7.0); }},
      {"add over one", [](P& p) { p.addKeyFrame(20, 7.0); }},
      {"set", [](P& p) { p.setKeyFrameValue(30, 7.0); }},
      {"remove", [](P& p) { p.removeKeyFrame(40); }},
      {"replace",
       [](P& p) { p.replaceKeyFrame(10, boost::make_shared<KeyFrame<double>>(12, 7.0)); }},
      {"move", [](P& p) { p.moveKeyFrame(10, 35); }},
      {"move twice",
       [](P& p) {
         p.moveKeyFrame(10, 35);
         p.moveKeyFrame(35, 95);
       }},
      {"swap places",
       [](P& p) {
         p.moveKeyFrame(10, 15);
         p.moveKeyFrame(20, 10);
         p.moveKeyFrame(15, 20);
       }},
      {"remove and add back",
       [](P& p) {
         p.removeKeyFrame(50);
         p.addKeyFrame(50, 5.0);
       }},
      {"value written in place",
       [](P& p) {
         p.journalKeyFrame(60);
         boost::const_pointer_cast<KeyFrame<double>>(p.keyFrame(60))->setValue(7.0);
       }},
      {"copy",
       [](P& p) {
         const auto source = P::create(parameterTests::newProject(), "source", 3.0);
         source->addKeyFrame(200, 4.0);
         p.copyKeyFramesFrom(*source);
       }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.edit);
    const auto parameter = P::create(parameterTests::newProject(), "opacity", 0.0);
    for (long long time = 10; time <= 90; time += 10) {
      parameter->addKeyFrame(time, static_cast<double>(time / 10));
    }
    const Snapshot before(*parameter);
    EditJournal journal;
    {
      const EditJournal::Scope open(&journal);
      row.run(*parameter);
    }
    journal.seal();
    const Snapshot after(*parameter);
    ASSERT_FALSE(before.objects == after.objects && before.text == after.text);
    journal.restoreBefore();
    expectSame(before, *parameter);
    journal.restoreAfter();
    expectSame(after, *parameter);
    journal.restoreBefore();
    expectSame(before, *parameter);
  }
}

}  // namespace
