// The project writer's document, parsed with Expat and checked against the
// grammar that the project reader accepts: children and attributes of every
// element, the idents that point back, and what a reader recomputes.

#include "core/IOException.h"
#include "core/KelMediaLibException.h"
#include "media/commands/AddEffectCmd.h"
#include "media/commands/AddLeftEdgeModCmd.h"
#include "media/commands/AddMediaCmd.h"
#include "media/commands/AddRightEdgeModCmd.h"
#include "media/commands/LinkCmd.h"
#include "media/commands/MoveLeftEdgeModCmd.h"
#include "media/commands/NewAudioMixerCmd.h"
#include "media/commands/NewAudioTrackCmd.h"
#include "media/commands/NewImageTrackCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/edges/EdgeModification.h"
#include "media/edges/FadeInFunc.h"
#include "media/edges/FadeOutFunc.h"
#include "media/edges/MixerXSlideInFunc.h"
#include "media/edges/MixerXSlideOutFunc.h"
#include "media/edges/MixerYSlideInFunc.h"
#include "media/edges/MixerYSlideOutFunc.h"
#include "media/edges/RotateFunc.h"
#include "media/effects/GenericEffect.h"
#include "media/media/AMFile.h"
#include "media/media/AudioTransition.h"
#include "media/media/Callout.h"
#include "media/media/IMFile.h"
#include "media/media/ImageTransition.h"
#include "media/media/TextBox.h"
#include "media/media/Transformer.h"
#include "media/media/VMFile.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/media/MediaTestSupport.h"
#include "media/project/InternalProject.h"
#include "media/project/ProjectWriter.h"
#include "media/timeline/AudioTrack.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/VisualMixer.h"
#include "media/timeline/VisualTrack.h"
#include "values/SetAttributeValueCmd.h"
#include "values/VectorParam.h"

#include <gtest/gtest.h>

#include <boost/lexical_cast.hpp>
#include <boost/make_shared.hpp>

#include <expat.h>

#include <cmath>
#include <cstring>
#include <fstream>
#include <limits>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace {

using namespace KelMediaLib;

struct Element {
  std::string name;
  std::map<std::string, std::string> attributes;
  std::vector<Element> children;
};

// The document as a tree; a malformed one fails the test with Expat's text.
Element parse(const std::string& xml) {
  struct Builder {
    Element root;
    std::vector<Element*> open{&root};
  } builder;
  XML_Parser parser = XML_ParserCreate("UTF-8");
  XML_SetUserData(parser, &builder);
  XML_SetElementHandler(
      parser,
      [](void* data, const XML_Char* name, const XML_Char** atts) {
        Builder& b = *static_cast<Builder*>(data);
        b.open.back()->children.push_back(Element{name, {}, {}});
        for (int i = 0; atts[i]; i += 2) b.open.back()->children.back().attributes[atts[i]] = atts[i + 1];
        b.open.push_back(&b.open.back()->children.back());
      },
      [](void* data, const XML_Char*) { static_cast<Builder*>(data)->open.pop_back(); });
  const bool ok = XML_Parse(parser, xml.data(), static_cast<int>(xml.size()), 1) != XML_STATUS_ERROR;
  EXPECT_TRUE(ok) << XML_ErrorString(XML_GetErrorCode(parser)) << " at line " << XML_GetCurrentLineNumber(parser);
  XML_ParserFree(parser);
  return ok && builder.root.children.size() == 1 ? builder.root.children[0] : Element();
}

// Element (or "parent>element") -> required attributes | allowed children.
const std::map<std::string, std::pair<std::string, std::string>> kGrammar = {
    {"Project", {"editRate version id", "SourceBin Timeline"}},
    {"SourceBin", {"", "Source"}},
    {"Source", {"id src lastMod rect", "SourceTrack"}},
    {"SourceTrack", {"range type editRate trackRect sampleRate bitDepth numChannels", ""}},
    {"Timeline", {"", "VisualMixer AudioMixer"}},
    {"VisualMixer", {"id", "Attributes Tracks Parameters Transformer"}},
    {"AudioMixer", {"id", "Attributes Tracks"}},
    {"VisualMixer>Tracks", {"", "VisualTrack"}},
    {"AudioMixer>Tracks", {"", "AudioTrack"}},
    {"VisualTrack", {"id", "Attributes Medias Parameters Transformer"}},
    {"AudioTrack", {"id", "Attributes Medias Parameters"}},
    {"VisualTrack>Medias", {"", "VMFile ImageTransition Callout IMFile TextBox"}},
    {"AudioTrack>Medias", {"", "AMFile"}},
    {"VMFile", {"id start duration scalar mediaStart mediaDuration trackNumber src",
                "Parameters Attributes Transformer LinkedMedia ScreenMetaData LeftEdgeMods RightEdgeMods Effects"}},
    {"AMFile", {"id start duration scalar mediaStart mediaDuration trackNumber src channelNumber",
                "Parameters Attributes LinkedMedia LeftEdgeMods RightEdgeMods"}},
    {"IMFile", {"id start duration scalar mediaStart mediaDuration trackNumber src trimStartSum",
                "Parameters Attributes Transformer LinkedMedia LeftEdgeMods RightEdgeMods Effects"}},
    {"Callout", {"id start duration scalar mediaStart mediaDuration trackNumber src textRect hotspot trimStartSum",
                 "Parameters Attributes Transformer LinkedMedia LeftEdgeMods RightEdgeMods"}},
    {"TextBox", {"id start duration width height trimStartSum",
                 "Parameters Effects LeftEdgeMods RightEdgeMods Transformer LinkedMedia"}},
    {"ImageTransition", {"id start duration", "Parameters Attributes Effects LeftEdgeMods RightEdgeMods"}},
    {"Attributes", {"", "Attribute"}},
    {"Attribute", {"id name value", ""}},
    {"Parameters", {"", "Parameter InterpolatingParam VectorParam"}},
    {"Parameter", {"id name", "Keyframes"}},
    {"InterpolatingParam", {"id name", "Parameters Keyframes"}},
    {"VectorParam>InterpolatingParam", {"id", "Parameters Keyframes"}},
    {"VectorParam", {"id name", "InterpolatingParam"}},
    {"Keyframes", {"", "Keyframe"}},
    {"Keyframe", {"time value", ""}},
    {"Transformer", {"", "VectorParam"}},
    {"LinkedMedia", {"", "MediaLink"}},
    {"MediaLink", {"link", ""}},
    {"Effects", {"", "GenericEffect"}},
    {"GenericEffect", {"id name", "Parameters"}},
    {"LeftEdgeMods", {"length", "EdgeMod"}},
    {"RightEdgeMods", {"length", "EdgeMod"}},
    {"EdgeMod", {"parameter", "FadeInFunc FadeOutFunc MixerXSlideIn MixerXSlideOut MixerYSlideIn MixerYSlideOut Rotate"}},
    {"FadeInFunc", {"", ""}},
    {"FadeOutFunc", {"", ""}},
    {"MixerXSlideIn", {"", ""}},
    {"MixerXSlideOut", {"", ""}},
    {"MixerYSlideIn", {"id angle", ""}},
    {"MixerYSlideOut", {"", ""}},
    {"Rotate", {"id numRotations", ""}},
    {"ScreenMetaData", {"", "ParameterFile"}},
    {"ParameterFile", {"filename paramName", ""}},
};

std::set<std::string> words(const std::string& text) {
  std::istringstream in(text);
  return std::set<std::string>(std::istream_iterator<std::string>(in), std::istream_iterator<std::string>());
}

const std::set<std::string> kOwners = {"VMFile", "AMFile", "IMFile", "Callout", "TextBox", "ImageTransition",
                                       "GenericEffect", "VisualTrack", "AudioTrack", "VisualMixer"};

// Walks the document in order as a reader does: every element and its
// attributes in the grammar, each ident quoted where a reader looks it up,
// the lengths that a reader recomputes.
struct GrammarCheck {
  std::set<std::string> seen, sources, parameters, medias, links;
  int edgeMods = 0;

  void check(const Element& e, const std::string& parent, const std::string& owner) {
    const std::string key = kGrammar.count(parent + ">" + e.name) ? parent + ">" + e.name : e.name;
    const auto rule = kGrammar.find(key);
    ASSERT_NE(kGrammar.end(), rule) << e.name << " in " << parent;
    seen.insert(key);
    std::set<std::string> names;
    for (const auto& attribute : e.attributes) names.insert(attribute.first);
    EXPECT_EQ(words(rule->second.first), names) << key;
    const std::map<std::string, std::string>& a = e.attributes;
    if (e.name == "Source") sources.insert(a.at("id"));
    if (a.count("src") && e.name != "Source") {
      EXPECT_TRUE(sources.count(a.at("src"))) << e.name;
    }
    if (kOwners.count(e.name) && a.count("start")) medias.insert(a.at("id"));
    if (e.name == "MediaLink") links.insert(a.at("link"));
    // A reader enters no parameter of an effect or an image transition.
    if (e.name == "InterpolatingParam" && owner != "GenericEffect" && owner != "ImageTransition")
      parameters.insert(a.at("id"));
    if (e.name == "EdgeMod") {
      ++edgeMods;
      EXPECT_TRUE(parameters.count(a.at("parameter"))) << "EdgeMod ahead of its parameter";
    }
    if (e.name == "VMFile" || e.name == "AMFile") {
      EXPECT_EQ(std::stoll(a.at("duration")),
                std::llround(std::stod(a.at("mediaDuration")) * std::stod(a.at("scalar"))));
    }
    if (e.name == "IMFile" || e.name == "TextBox") {
      EXPECT_LE(0, std::stoll(a.at("duration")) + std::stoll(a.at("trimStartSum")));
    }
    const std::set<std::string> allowed = words(rule->second.second);
    for (const Element& child : e.children) {
      EXPECT_TRUE(allowed.count(child.name)) << child.name << " in " << key;
      check(child, e.name, kOwners.count(child.name) ? child.name : owner);
    }
  }
};

// A project with every media kind, each element of the grammar and the
// things the file can't hold: an audio transition, edge modifications
// without a parameter or with an effect's, a still trimmed past its length.
boost::shared_ptr<InternalProject> richProject(const std::string& name = "cam <1> & \"2\"\n\t'3'") {
  const auto project = InternalProject::create(EditRate(30, 1));
  const auto run = [&](const boost::shared_ptr<Command>& command) { project->execute(command); };
  run(NewVisualMixerCmd::create(1280.5f, 720));
  run(NewAudioMixerCmd::create(48000, 16, 2));
  const auto videoCmd = NewVisualTrackCmd::create(-1);
  const auto imageCmd = NewImageTrackCmd::create(-1);
  const auto audioCmd = NewAudioTrackCmd::create(-1);
  run(videoCmd), run(imageCmd), run(audioCmd);
  const auto video = videoCmd->visualTrack(), images = imageCmd->visualTrack();
  const auto audio = audioCmd->audioTrack();
  const auto source = mediatest::makeSource();
  project->loadSource(source);
  const boost::weak_ptr<const ThreadSafe> lock(project);

  const auto clip = VMFile::create(Range<long long>(0, 300), lock, source, 0);
  clip->opacity()->addKeyFrame(30, 0.25);
  clip->transformer()->rotation()->at(2)->addKeyFrame(60, 90.0);
  clip->setScalar(2.5);
  clip->trimEnd(3);
  run(AddMediaCmd::create(video, clip, 100));
  run(boost::make_shared<SetAttributeValueCmd<std::string>>(clip->ident(), name));
  const auto blur = GenericEffect::create("Blur", lock);
  blur->parameters().front()->moveKeyFrame(0, 12);
  run(AddEffectCmd::create(clip, blur));
  const std::string cursorFile = ::testing::TempDir() + "writer-cursor.txt";
  std::ofstream(cursorFile) << "0.5 10 20\n";
  const auto metaData = ScreenMetaData::create(lock, clip, project);
  metaData->setCursorLocationFile(cursorFile);
  run(boost::make_shared<SetAttributeValueCmd<boost::shared_ptr<const ScreenMetaData>>>(
      clip->screenMetaData(), metaData));
  const auto blurRadius = boost::dynamic_pointer_cast<const Parameter<double>>(blur->parameters().front());
  const auto mixer = project->visualMixer();
  run(MoveLeftEdgeModCmd::create(clip, 20));
  for (const EdgeModification& m :
       {EdgeModification(clip->opacity(), FadeInFunc()),
        EdgeModification(clip->sourceCropParam()->at(1), MixerXSlideInFunc()),
        EdgeModification(video->transformer()->translation()->at(1), MixerYSlideInFunc(30.5)),
        EdgeModification(mixer->transformer()->rotation()->at(2), RotateFunc(2)),
        EdgeModification(boost::shared_ptr<const Parameter<double>>(), FadeInFunc()),
        EdgeModification(blurRadius, FadeInFunc())})
    run(AddLeftEdgeModCmd::create(clip, m));
  for (const EdgeModification& m : {EdgeModification(clip->opacity(), FadeOutFunc()),
                                    EdgeModification(clip->opacity(), MixerXSlideOutFunc()),
                                    EdgeModification(clip->opacity(), MixerYSlideOutFunc())})
    run(AddRightEdgeModCmd::create(clip, m));

  const auto image = IMFile::create(10, 50, lock, source, 0);
  image->trimStart(-40);
  image->trimEnd(80);
  run(AddMediaCmd::create(images, image, 500));
  run(AddEffectCmd::create(image, GenericEffect::create("Unknown", lock)));
  const auto box = TextBox::create(name, 90, 320.5f, 40, lock);
  box->text()->addKeyFrame(45, "second\n<line>");
  run(AddMediaCmd::create(images, box, 600));
  const auto callout = Callout::create(0, 60, lock, source, 0);
  run(boost::make_shared<SetAttributeValueCmd<Point>>(callout->hotSpotAttr(), Point(1.5, -2, 0)));
  run(AddMediaCmd::create(images, callout, 700));
  const auto wipe = ImageTransition::create(20, lock);
  run(AddMediaCmd::create(video, wipe, 800));
  run(AddLeftEdgeModCmd::create(wipe, EdgeModification(wipe->opacity(), FadeInFunc())));

  const auto sound = AMFile::create(Range<long long>(0, 300), lock, source, 1, {0, 1});
  run(AddMediaCmd::create(audio, sound, 100));
  run(LinkCmd::create(clip, sound));
  const auto fade = AudioTransition::create(30, lock);
  run(AddMediaCmd::create(audio, fade, 400));
  run(LinkCmd::create(sound, fade));
  mixer->fovParam()->addKeyFrame(10, 30.5f);
  return project;
}

std::string written(const Project& project) {
  std::ostringstream out;
  ProjectWriter::write(project, out);
  return out.str();
}

TEST(ProjectWriterTest, EveryElementFollowsTheGrammarAndPointsBackward) {
  const std::string xml = written(*richProject());
  const Element root = parse(xml);
  GrammarCheck check;
  check.check(root, "", "");
  std::set<std::string> all;
  for (const auto& rule : kGrammar) all.insert(rule.first);
  EXPECT_EQ(all, check.seen);
  // Of nine modifications, the one without a parameter, the one naming an
  // effect's and the one naming an image transition's own are left out.
  EXPECT_EQ(7, check.edgeMods);
  EXPECT_EQ(check.medias.size(), 6u);
  for (const std::string& link : check.links) EXPECT_TRUE(check.medias.count(link)) << link;
  EXPECT_EQ(0u, xml.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Project ", 0));
  EXPECT_EQ(std::string::npos, xml.find("AudioTransition"));
}

// Idents differ between two projects built alike; nothing else may.
TEST(ProjectWriterTest, AProjectBuiltTwiceIsWrittenAlikeButForIdents) {
  const auto normalised = [](const std::string& xml) {
    const std::regex ident("\\b(id|src|link|parameter)=\"([0-9]+)\"");
    std::map<std::string, std::string> renamed;
    std::string result;
    auto from = xml.cbegin();
    for (std::sregex_iterator it(xml.begin(), xml.end(), ident), end; it != end; ++it) {
      const std::string number = (*it)[2];
      renamed.emplace(number, std::to_string(renamed.size()));
      result.append(from, (*it)[0].first) += (*it)[1].str() + "=\"" + renamed[number] + "\"";
      from = (*it)[0].second;
    }
    return result.append(from, xml.cend());
  };
  const std::string first = written(*richProject());
  const std::string second = written(*richProject());
  EXPECT_NE(first, second);
  EXPECT_EQ(normalised(first), normalised(second));
}

// Strings come back from the parser as they were, doubles to the same bits.
TEST(ProjectWriterTest, StringsAndNumbersReadBackUnchanged) {
  const std::string strings[] = {"plain", "a&b<c>d\"e'f", "line\nbreak\ttab\rreturn", "  blanks  ", "\xc3\xa9t\xc3\xa9", ""};
  const double numbers[] = {0.1, 1.0 / 3, -2.5e-300, 5e-324, std::numeric_limits<double>::max(), 123456789.123456789, -0.0};
  for (const std::string& text : strings) {
    const auto project = richProject(text);
    const Element root = parse(written(*project));
    const Element& clip = root.children[1].children[0].children[3].children[0].children[2].children[0];
    ASSERT_EQ("VMFile", clip.name);
    EXPECT_EQ(text, clip.children[1].children[0].attributes.at("value"));
  }
  const auto project = richProject();
  const auto clip = boost::dynamic_pointer_cast<const VMFile>(project->timeline()->allMedias().front());
  for (std::size_t i = 0; i < std::size(numbers); ++i) clip->opacity()->addKeyFrame(1000 + i, numbers[i]);
  const std::string xml = written(*project);
  for (std::size_t i = 0; i < std::size(numbers); ++i) {
    const std::string tag = "<Keyframe time=\"" + std::to_string(1000 + i) + "\" value=\"";
    const std::size_t at = xml.find(tag) + tag.size();
    const double back = boost::lexical_cast<double>(xml.substr(at, xml.find('"', at) - at));
    EXPECT_EQ(0, std::memcmp(&back, &numbers[i], sizeof back)) << numbers[i];
  }
}

TEST(ProjectWriterTest, RefusesAMediaOfASourceOutsideTheBinBeforeWriting) {
  const auto project = richProject();
  const auto unloaded = VMFile::create(Range<long long>(0, 10), project, mediatest::makeSource(), 0);
  project->execute(AddMediaCmd::create(project->visualMixer()->trackAt(0), unloaded, 5000));
  std::ostringstream out;
  EXPECT_THROW(ProjectWriter::write(*project, out), KelMediaLibException);
  EXPECT_EQ("", out.str());
}

TEST(ProjectWriterTest, WritesAFileOrNamesTheOneItCannotWrite) {
  const auto project = richProject();
  const std::string path = ::testing::TempDir() + "written-project.xml";
  ProjectWriter::write(*project, path);
  std::ifstream in(path);
  EXPECT_EQ(written(*project), std::string(std::istreambuf_iterator<char>(in), {}));
  const std::string bad = ::testing::TempDir() + "no/such/folder/project.xml";
  try {
    ProjectWriter::write(*project, bad);
    ADD_FAILURE() << "wrote " << bad;
  } catch (const IOException& e) {
    EXPECT_NE(std::string::npos, std::string(e.what()).find(bad));
  }
  std::ostringstream nested;
  nested << "<OrvProject version=\"1.0\">\n";
  ProjectWriter::writeElement(*project, nested, 1);
  nested << "</OrvProject>\n";
  EXPECT_EQ("Project", parse(nested.str()).children.at(0).name);
  EXPECT_NE(std::string::npos, nested.str().find("\n  <Project "));
}

}  // namespace
