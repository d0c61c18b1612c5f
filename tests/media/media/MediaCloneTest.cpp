#include "media/edges/EdgeModification.h"
#include "media/edges/FadeInFunc.h"
#include "media/edges/RotateFunc.h"
#include "media/effects/GenericEffect.h"
#include "media/media/Callout.h"
#include "media/media/MediaTestSupport.h"
#include "media/media/TextBox.h"
#include "media/media/Transformer.h"
#include "media/media/VMFile.h"
#include "values/VectorParam.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <vector>

using namespace KelMediaLib;

namespace {

typedef Range<long long> R;

using mediatest::RecordingDecorator;

struct MediaCloneTest : ::testing::Test {
  mediatest::Project project;
  boost::shared_ptr<VMFile> source;
  boost::shared_ptr<GenericEffect> blur;

  void SetUp() override {
    source = VMFile::create(R(0, 300), project.lock, project.source, 0);
    source->setStart(40);
    source->setScalar(2.0);
    source->trimStart(10);
    source->opacity()->addKeyFrame(30, 0.5);
    source->transformer()->translation()->at(1)->addKeyFrame(12, 7.0);
    blur = GenericEffect::create("Blur", project.lock);
    blur->parameterWithName("radius")->moveKeyFrame(0, 3);
    source->insertEffect(blur, -1);
    source->setLeftEdgeLength(15);
    source->insertLeftEdgeModification(
        boost::make_shared<EdgeModification>(source->opacity(), FadeInFunc()), -1);
    source->insertRightEdgeModification(
        boost::make_shared<EdgeModification>(
            boost::dynamic_pointer_cast<const Parameter<double>>(blur->parameterWithName("radius")),
            RotateFunc(2)),
        -1);
    source->addLink(VMFile::create(R(0, 10), project.lock, project.source, 0));
  }
};

TEST_F(MediaCloneTest, CloneCopiesTimesParametersEffectsAndEdgesButNotPlaceOrLinks) {
  const boost::shared_ptr<Media> copy(source->clone());
  const boost::shared_ptr<VMFile> clone = boost::dynamic_pointer_cast<VMFile>(copy);
  ASSERT_TRUE(clone);
  EXPECT_NE(source->xmlIdent(), clone->xmlIdent());
  EXPECT_EQ(source->range(), clone->range());
  EXPECT_EQ(source->mediaTimeRange(), clone->mediaTimeRange());
  EXPECT_EQ(source->scalar(), clone->scalar());
  EXPECT_EQ(source->trimStartSum(), clone->trimStartSum());
  EXPECT_EQ(source->source(), clone->source());
  EXPECT_FALSE(clone->parent());
  EXPECT_TRUE(clone->links().empty());
  EXPECT_FALSE(clone->hasCloneDecorator());

  ASSERT_EQ(source->parameters().size(), clone->parameters().size());
  for (const boost::shared_ptr<ParameterInterface>& parameter : source->parameters()) {
    SCOPED_TRACE(parameter->name());
    const boost::shared_ptr<ParameterInterface> twin = clone->parameterNamed(parameter->name());
    ASSERT_TRUE(twin);
    EXPECT_NE(parameter, twin);
    EXPECT_EQ(parameter->keyFrameTimes(), twin->keyFrameTimes());
    EXPECT_NE(parameter->xmlIdent(), twin->xmlIdent());
  }
  EXPECT_EQ(0.5, clone->opacity()->valueAt(30));
  EXPECT_EQ(7.0, clone->transformer()->translation()->at(1)->valueAt(12));

  ASSERT_EQ(1, clone->numEffects());
  const boost::shared_ptr<const Effect> effect = clone->effectAt(0);
  EXPECT_NE(blur.get(), effect.get());
  EXPECT_NE(blur->xmlIdent(), effect->xmlIdent());
  EXPECT_EQ("Blur", effect->name());
  EXPECT_EQ(clone.get(), effect->owner());
  EXPECT_EQ(std::vector<long long>{3}, effect->parameterNamed("radius")->keyFrameTimes());

  EXPECT_EQ(15, clone->leftEdgeLength());
  ASSERT_EQ(1u, clone->leftEdgeModifications().size());
  EXPECT_EQ(clone->opacity(), clone->leftEdgeModifications()[0]->parameter());
  EXPECT_NE(source->leftEdgeModifications()[0], clone->leftEdgeModifications()[0]);
  ASSERT_EQ(1u, clone->rightEdgeModifications().size());
  EXPECT_EQ(effect->parameterNamed("radius"), clone->rightEdgeModifications()[0]->parameter());
  EXPECT_EQ(750.0, clone->rightEdgeModifications()[0]->function().apply(30.0, 1.0));
}

TEST_F(MediaCloneTest, CloneAndSourceAreIndependent) {
  const boost::shared_ptr<VMFile> clone = boost::dynamic_pointer_cast<VMFile>(source->cloneMedia());
  clone->opacity()->setKeyFrameValue(30, 0.25);
  clone->trimEnd(20);
  boost::const_pointer_cast<Effect>(clone->effectAt(0))
      ->parameterNamed("radius")
      ->moveKeyFrame(3, 9);
  EXPECT_EQ(0.5, source->opacity()->valueAt(30));
  EXPECT_EQ(std::vector<long long>{3}, blur->parameterWithName("radius")->keyFrameTimes());
  EXPECT_EQ(R(50, 590), source->range());
}

TEST_F(MediaCloneTest, StillKindsKeepTheirOwnState) {
  const boost::shared_ptr<TextBox> box = TextBox::create("hello", 90, 320.0f, 40.0f, project.lock);
  box->text()->addKeyFrame(45, "bye");
  const auto boxClone = boost::dynamic_pointer_cast<TextBox>(box->cloneMedia());
  ASSERT_TRUE(boxClone);
  EXPECT_EQ("hello", boxClone->text()->valueAt(0));
  EXPECT_EQ("bye", boxClone->text()->valueAt(50));
  EXPECT_EQ(320.0f, boxClone->width());
  EXPECT_NE(box->text(), boxClone->text());

  const auto callout = Callout::create(0, 60, project.lock, project.source, 0);
  callout->textParam()->addKeyFrame(0, "look here");
  const auto calloutClone = boost::dynamic_pointer_cast<Callout>(callout->cloneMedia());
  ASSERT_TRUE(calloutClone);
  EXPECT_EQ("look here", calloutClone->textParam()->valueAt(10));
  EXPECT_NE(callout->hotSpotAttr(), calloutClone->hotSpotAttr());
}

TEST_F(MediaCloneTest, OnlyCloneMediaRunsTheDecoratorOnceWithSourceAndClone) {
  std::vector<RecordingDecorator::Call> calls;
  bool firstDeleted = false;
  bool deleted = false;
  source->setCloneDecorator(new RecordingDecorator(calls, &firstDeleted));
  source->setCloneDecorator(new RecordingDecorator(calls, &deleted));
  EXPECT_TRUE(firstDeleted);  // putting in a decorator deletes the old one

  delete source->clone();
  EXPECT_TRUE(calls.empty());

  const boost::shared_ptr<Media> clone = source->cloneMedia();
  ASSERT_EQ(1u, calls.size());
  EXPECT_EQ(source.get(), calls[0].source);
  EXPECT_EQ(clone.get(), calls[0].clone);
  EXPECT_FALSE(clone->hasCloneDecorator());

  source->deleteCloneDecorator();
  EXPECT_TRUE(deleted);
  EXPECT_FALSE(source->hasCloneDecorator());
  source->cloneMedia();
  EXPECT_EQ(1u, calls.size());
}

}  // namespace
