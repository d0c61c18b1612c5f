#include "core/Attribute.h"
#include "media/edges/EdgeModification.h"
#include "media/edges/FadeOutFunc.h"
#include "media/media/AMFile.h"
#include "media/media/AudioTransition.h"
#include "media/media/Callout.h"
#include "media/media/ConstMediaDispatcher.h"
#include "media/media/IMFile.h"
#include "media/media/ImageTransition.h"
#include "media/media/MediaTestSupport.h"
#include "media/media/TextBox.h"
#include "media/media/VMFile.h"
#include "media/timeline/AudioTrack.h"
#include "media/timeline/VisualMixer.h"
#include "media/timeline/VisualTrack.h"
#include "values/LeftParameter.h"
#include "values/VectorParam.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace KelMediaLib;

namespace {

typedef Range<long long> R;

std::vector<std::string> members(const std::string& name, int count) {
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) {
    names.push_back(name + std::to_string(i));
  }
  return names;
}

std::vector<std::string> operator+(std::vector<std::string> a, const std::vector<std::string>& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

const std::vector<std::string> transformerNames = members("translation", 3) + members("scale", 3) +
                                                  members("rotation", 3) + members("anchor", 3) +
                                                  members("shear", 3);
const std::vector<std::string> visualNames = std::vector<std::string>{"opacity"} +
                                             members("sourceCrop", 4) + members("geometryCrop", 4) +
                                             transformerNames;

using mediatest::xmlOf;

TEST(MediaParametersTest, EachKindRegistersExactlyTheParametersOfItsFileElement) {
  mediatest::Project p;
  struct Case {
    std::string kind;
    boost::shared_ptr<Parametric> parametric;
    std::vector<std::string> names;
  };
  const Case cases[] = {
      {"VMFile", VMFile::create(R(0, 10), p.lock, p.source, 0), visualNames},
      {"IMFile", IMFile::create(0, 10, p.lock, p.source, 0), visualNames},
      {"ImageTransition", ImageTransition::create(10, p.lock), visualNames},
      {"TextBox", TextBox::create("t", 10, 1.0f, 1.0f, p.lock),
       std::vector<std::string>{"text"} + visualNames},
      {"Callout", Callout::create(0, 10, p.lock, p.source, 0),
       visualNames + std::vector<std::string>{"text"}},
      {"AMFile", AMFile::create(R(0, 10), p.lock, p.source, 1, {0}), {"volume"}},
      {"AudioTransition", AudioTransition::create(10, p.lock), {"volume"}},
      {"VisualMixer", VisualMixer::create(640, 480, p.lock),
       members("eyePosition", 3) + members("eyeLookAtPosition", 3) + members("eyeUpVector", 3) +
           std::vector<std::string>{"fov", "nearClipDistance", "farClipDistance"} +
           transformerNames},
      {"VisualTrack", VisualTrack::create(p.lock), transformerNames},
      {"AudioTrack", AudioTrack::create(p.lock), {"position"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.kind);
    std::vector<std::string> registered;
    for (const boost::shared_ptr<ParameterInterface>& parameter : c.parametric->parameters()) {
      registered.push_back(parameter->name());
      EXPECT_EQ(parameter, c.parametric->parameterNamed(parameter->name()));
      EXPECT_EQ(1u, parameter->numKeyFrames());
    }
    std::vector<std::string> expected = c.names;
    std::sort(expected.begin(), expected.end());
    std::sort(registered.begin(), registered.end());
    EXPECT_EQ(expected, registered);
  }
}

TEST(MediaParametersTest, ParametersHaveTheTypesAndRestValuesOfTheFileFormat) {
  mediatest::Project p;
  const boost::shared_ptr<VMFile> video = VMFile::create(R(0, 10), p.lock, p.source, 0);
  const auto number = [&](const std::string& name) {
    const auto parameter =
        boost::dynamic_pointer_cast<InterpolatingParam<double>>(video->parameterNamed(name));
    EXPECT_TRUE(parameter) << name;
    return parameter ? parameter->valueAt(0) : -1.0;
  };
  EXPECT_EQ(1.0, number("opacity"));
  EXPECT_EQ(1.0, number("scale2"));
  EXPECT_EQ(0.0, number("translation0"));
  EXPECT_EQ(0.0, number("sourceCrop3"));
  EXPECT_EQ(0.0, number("geometryCrop0"));

  const boost::shared_ptr<TextBox> box = TextBox::create("hi", 10, 1.0f, 1.0f, p.lock);
  EXPECT_TRUE(boost::dynamic_pointer_cast<LeftParameter<std::string>>(box->parameterNamed("text")));
  EXPECT_EQ("hi", box->text()->valueAt(0));

  const boost::shared_ptr<AMFile> sound = AMFile::create(R(0, 10), p.lock, p.source, 1, {0, 1});
  EXPECT_EQ(1.0, sound->volume()->valueAt(0));
  EXPECT_EQ(1.0, sound->gain()->value());
  EXPECT_EQ("gain", sound->gain()->name());
  EXPECT_EQ(48000u, sound->sampleRate()->value());
  EXPECT_EQ(16u, sound->bitDepth()->value());
  EXPECT_EQ("clip-audio.wav", sound->fileName());
  EXPECT_EQ("clip.mov", video->fileName());

  const boost::shared_ptr<VisualMixer> mixer = VisualMixer::create(640, 480, p.lock);
  EXPECT_TRUE(boost::dynamic_pointer_cast<InterpolatingParam<float>>(mixer->parameterNamed("fov")));
  EXPECT_EQ(640.0f, mixer->attributeWidth()->value());
  const boost::shared_ptr<AudioTrack> track = AudioTrack::create(p.lock);
  EXPECT_TRUE(boost::dynamic_pointer_cast<InterpolatingParam<AudioPosition>>(
      track->parameterNamed("position")));
}

TEST(MediaParametersTest, GeometryCropRectangleUsesTheTrackSize) {
  mediatest::Project p;
  const boost::shared_ptr<VMFile> video = VMFile::create(R(0, 100), p.lock, p.source, 0);
  video->geometryCropParam()->at(0)->addKeyFrame(0, 10.0);
  video->geometryCropParam()->at(3)->addKeyFrame(0, 20.0);
  video->geometryCropParam()->at(2)->addKeyFrame(20, 40.0);
  video->setScalar(2.0);
  EXPECT_EQ(Rect<double>(10, 0, 630, 460), video->geometryCropRectAtTime(0));
  // Own time 40 is parameter time 20.
  EXPECT_EQ(Rect<double>(10, 0, 590, 460), video->geometryCropRectAtTime(40));
  EXPECT_EQ(640.0f, video->width());
  EXPECT_EQ(480.0f, video->height());
}

struct KindRecorder : ConstMediaDispatcher {
  std::string seen;
  void dispatchMedia(const boost::shared_ptr<const VMFile>&) override { seen += "V"; }
  void dispatchMedia(const boost::shared_ptr<const AMFile>&) override { seen += "A"; }
  void dispatchMedia(const boost::shared_ptr<const IMFile>&) override { seen += "I"; }
  void dispatchMedia(const boost::shared_ptr<const ImageTransition>&) override { seen += "T"; }
  void dispatchMedia(const boost::shared_ptr<const AudioTransition>&) override { seen += "U"; }
  void dispatchMedia(const boost::shared_ptr<const TextBox>&) override { seen += "X"; }
  void dispatchMedia(const boost::shared_ptr<const Callout>&) override { seen += "C"; }
};

TEST(MediaParametersTest, DispatchReachesTheOverloadOfEachKind) {
  mediatest::Project p;
  const std::vector<boost::shared_ptr<Media>> medias = {
      VMFile::create(R(0, 10), p.lock, p.source, 0),
      AMFile::create(R(0, 10), p.lock, p.source, 1, {}),
      IMFile::create(0, 10, p.lock, p.source, 0),
      ImageTransition::create(10, p.lock),
      AudioTransition::create(10, p.lock),
      TextBox::create("", 10, 1.0f, 1.0f, p.lock),
      Callout::create(0, 10, p.lock, p.source, 0)};
  KindRecorder recorder;
  for (const boost::shared_ptr<Media>& media : medias) {
    media->dispatch(recorder);
  }
  EXPECT_EQ("VAITUXC", recorder.seen);
}

TEST(MediaParametersTest, FileElementsCarryTheirValuesAndLinks) {
  mediatest::Project p;
  const boost::shared_ptr<VMFile> video = VMFile::create(R(0, 300), p.lock, p.source, 0);
  video->trimStart(30);
  video->setLeftEdgeLength(10);
  video->insertLeftEdgeModification(
      boost::make_shared<EdgeModification>(video->opacity(), FadeOutFunc()), -1);
  const boost::shared_ptr<AMFile> sound = AMFile::create(R(0, 300), p.lock, p.source, 1, {0, 1});
  video->addLink(sound);
  const std::string xml = xmlOf(*video);
  // Idents are numbered in the order the element names them: itself, its
  // source, then its parameters ahead of the link and the edge.
  const auto identOf = [&xml](const std::string& before) {
    const auto at = xml.find(before);
    return at == std::string::npos
               ? std::string("?")
               : xml.substr(at + before.size(),
                            xml.find('"', at + before.size()) - at - before.size());
  };
  const std::string opacity = identOf("<EdgeMod parameter=\"");
  EXPECT_NE(std::string::npos,
            xml.find("<InterpolatingParam id=\"" + opacity + "\" name=\"opacity\">"));
  EXPECT_LT(std::stoi(opacity), std::stoi(identOf("link=\"")));
  const std::vector<std::string> expected = {
      "<VMFile id=\"1\" start=\"30\" duration=\"270\" scalar=\"1\" mediaStart=\"30\" "
      "mediaDuration=\"270\" trackNumber=\"0\" src=\"2\">\n",
      "  <LinkedMedia>\n    <MediaLink link=\"",
      "\">\n      <FadeOutFunc/>\n    </EdgeMod>\n",
      "</VMFile>\n",
  };
  for (const std::string& part : expected) {
    EXPECT_NE(std::string::npos, xml.find(part)) << part << "\nin\n" << xml;
  }
  EXPECT_EQ(std::string::npos, xml.find("RightEdgeMods"));

  const std::string audio = xmlOf(*sound);
  for (const std::string& part :
       {std::string("channelNumber=\"(0,1)\">"), std::string("name=\"sampleRate\" value=\"48000\""),
        std::string("name=\"bitDepth\" value=\"16\""), std::string("name=\"gain\" value=\"1\""),
        std::string("name=\"volume\"")}) {
    EXPECT_NE(std::string::npos, audio.find(part)) << part;
  }
}

TEST(MediaParametersTest, StillElementsWriteWhatTheirReaderReplays) {
  mediatest::Project p;
  const boost::shared_ptr<IMFile> image = IMFile::create(10, 50, p.lock, p.source, 0);
  image->setStart(100);
  image->trimStart(5);
  EXPECT_NE(
      std::string::npos,
      xmlOf(*image).find("start=\"105\" duration=\"45\" scalar=\"1\" mediaStart=\"10\" "
                         "mediaDuration=\"45\" trackNumber=\"0\" src=\"2\" trimStartSum=\"5\">"));

  const boost::shared_ptr<TextBox> box = TextBox::create("a \"b\"", 90, 320.5f, 40.0f, p.lock);
  const std::string text = xmlOf(*box);
  EXPECT_NE(
      std::string::npos,
      text.find("start=\"0\" duration=\"90\" width=\"320.5\" height=\"40\" trimStartSum=\"0\">"));
  EXPECT_NE(std::string::npos, text.find("value=\"a &quot;b&quot;\""));

  const boost::shared_ptr<Callout> callout = Callout::create(0, 60, p.lock, p.source, 0);
  EXPECT_NE(std::string::npos,
            xmlOf(*callout).find("textRect=\"(0,0,0,0)\" hotspot=\"(0,0,0)\" trimStartSum=\"0\">"));
}

}  // namespace
