// The project writer's documents, parsed with Expat and checked against the
// grammar that the project reader accepts.

#include "media/commands/TimelineFixture.h"

#include "core/IOException.h"
#include "media/commands/AddRightEdgeModCmd.h"
#include "media/commands/MoveLeftEdgeModCmd.h"
#include "media/edges/FadeOutFunc.h"
#include "media/edges/MixerXSlideInFunc.h"
#include "media/edges/MixerXSlideOutFunc.h"
#include "media/edges/MixerYSlideInFunc.h"
#include "media/edges/MixerYSlideOutFunc.h"
#include "media/edges/RotateFunc.h"
#include "media/media/AudioTransition.h"
#include "media/media/ImageTransition.h"
#include "media/media/MediaTestSupport.h"
#include "media/media/Transformer.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/project/ProjectWriter.h"
#include "media/timeline/VisualMixer.h"
#include "values/SetAttributeValueCmd.h"
#include "values/VectorParam.h"
#include "support/ScratchFolder.h"

#include <boost/lexical_cast.hpp>

#include <expat.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace KelMediaLib {
namespace {

struct Element {
  std::string name;
  std::map<std::string, std::string> atts;
  std::vector<Element> children;
};

// The document as a tree; a malformed one fails the test with Expat's text.
Element parse(const std::string& xml) {
  std::vector<Element> open(1);
  XML_Parser parser = XML_ParserCreate("UTF-8");
  XML_SetUserData(parser, &open);
  XML_SetElementHandler(
      parser,
      [](void* data, const XML_Char* name, const XML_Char** atts) {
        auto& stack = *static_cast<std::vector<Element>*>(data);
        stack.push_back(Element{name, {}, {}});
        for (int i = 0; atts[i]; i += 2) stack.back().atts[atts[i]] = atts[i + 1];
      },
      [](void* data, const XML_Char*) {
        auto& stack = *static_cast<std::vector<Element>*>(data);
        Element done = std::move(stack.back());
        stack.pop_back();
        stack.back().children.push_back(std::move(done));
      });
  const bool ok = XML_Parse(parser, xml.data(), static_cast<int>(xml.size()), 1) == XML_STATUS_OK;
  EXPECT_TRUE(ok) << XML_ErrorString(XML_GetErrorCode(parser)) << ", line "
                  << XML_GetCurrentLineNumber(parser);
  XML_ParserFree(parser);
  return ok ? open[0].children.at(0) : Element();
}

std::set<std::string> words(const std::string& text) {
  std::istringstream in(text);
  return {std::istream_iterator<std::string>(in), std::istream_iterator<std::string>()};
}

// Element names (or "parent>name") | their attributes, all required | the
// children they may hold. Rows are parted by line ends and semicolons.
const char* const kGrammar = R"(Project|editRate version id|SourceBin Timeline; SourceBin||Source
Source|id src lastMod rect|SourceTrack; SourceTrack|range type editRate trackRect sampleRate bitDepth numChannels|
Timeline||VisualMixer AudioMixer; VisualMixer>Tracks||VisualTrack; AudioMixer>Tracks||AudioTrack
VisualMixer|id|Attributes Tracks Parameters Transformer; AudioMixer|id|Attributes Tracks
VisualTrack|id|Attributes Medias Parameters Transformer; AudioTrack|id|Attributes Medias Parameters
VisualTrack>Medias||VMFile ImageTransition Callout IMFile TextBox; AudioTrack>Medias||AMFile
VMFile|id start duration scalar mediaStart mediaDuration trackNumber src|Parameters Attributes Transformer LinkedMedia ScreenMetaData LeftEdgeMods RightEdgeMods Effects
AMFile|id start duration scalar mediaStart mediaDuration trackNumber src channelNumber|Parameters Attributes LinkedMedia LeftEdgeMods RightEdgeMods
IMFile|id start duration scalar mediaStart mediaDuration trackNumber src trimStartSum|Parameters Attributes Transformer LinkedMedia LeftEdgeMods RightEdgeMods Effects
Callout|id start duration scalar mediaStart mediaDuration trackNumber src textRect hotspot trimStartSum|Parameters Attributes Transformer LinkedMedia LeftEdgeMods RightEdgeMods
TextBox|id start duration width height trimStartSum|Parameters Attributes Effects LeftEdgeMods RightEdgeMods Transformer LinkedMedia
ImageTransition|id start duration|Parameters Attributes Effects LeftEdgeMods RightEdgeMods
Parameters||Parameter InterpolatingParam VectorParam; Parameter|id name|Keyframes; VectorParam|id name|InterpolatingParam
InterpolatingParam|id name|Parameters Keyframes; VectorParam>InterpolatingParam|id|Parameters Keyframes
Attributes||Attribute; Attribute|id name value|; Keyframes||Keyframe; Keyframe|time value|; Transformer||VectorParam
LinkedMedia||MediaLink; MediaLink|link|; Effects||GenericEffect; GenericEffect|id name|Parameters
LeftEdgeMods RightEdgeMods|length|EdgeMod; MixerYSlideIn|id angle|; Rotate|id numRotations|
EdgeMod|parameter|FadeInFunc FadeOutFunc MixerXSlideIn MixerXSlideOut MixerYSlideIn MixerYSlideOut Rotate
FadeInFunc FadeOutFunc MixerXSlideIn MixerXSlideOut MixerYSlideOut||
ScreenMetaData||ParameterFile; ParameterFile|filename paramName|)";

// Walks a document as a reader does: every element with the attributes and
// children of the grammar, each ident quoted after the element that has it,
// the lengths that a reader recomputes.
struct GrammarWalk {
  std::map<std::string, std::pair<std::set<std::string>, std::set<std::string>>> rules;
  std::set<std::string> seen, sources, parameters;
  int edgeMods = 0;

  GrammarWalk() {
    std::istringstream text(std::regex_replace(std::string(kGrammar), std::regex("; "), "\n"));
    for (std::string row; std::getline(text, row);) {
      const std::size_t bar = row.find('|'), bar2 = row.find('|', bar + 1);
      for (const std::string& name : words(row.substr(0, bar)))
        rules[name] = {words(row.substr(bar + 1, bar2 - bar - 1)), words(row.substr(bar2 + 1))};
    }
  }

  // `entering`: whether a reader enters the parameters met here in its table,
  // which it does for none of an effect or an image transition.
  void walk(const Element& e, const std::string& parent, bool entering) {
    const std::string key = rules.count(parent + ">" + e.name) ? parent + ">" + e.name : e.name;
    ASSERT_TRUE(rules.count(key)) << e.name << " in " << parent;
    seen.insert(key);
    std::set<std::string> names;
    for (const auto& a : e.atts) names.insert(a.first);
    EXPECT_EQ(rules[key].first, names) << key;
    const auto number = [&](const char* name) { return std::stod(e.atts.at(name)); };
    if (e.name == "Source") sources.insert(e.atts.at("id"));
    EXPECT_TRUE(!e.atts.count("trackNumber") || sources.count(e.atts.at("src"))) << key;
    entering = entering && e.name != "GenericEffect" && e.name != "ImageTransition";
    if (e.name == "InterpolatingParam" && entering) parameters.insert(e.atts.at("id"));
    edgeMods += e.name == "EdgeMod";
    EXPECT_TRUE(e.name != "EdgeMod" || parameters.count(e.atts.at("parameter")))
        << "parameter ahead";
    EXPECT_TRUE((e.name != "VMFile" && e.name != "AMFile") ||
                number("duration") == std::llround(number("mediaDuration") * number("scalar")))
        << key;
    // A reader replays a still's trims with an end trim by minus the sum first.
    EXPECT_TRUE((e.name != "IMFile" && e.name != "TextBox") ||
                number("duration") + number("trimStartSum") >= 0);
    for (const Element& child : e.children) {
      EXPECT_EQ(1u, rules[key].second.count(child.name)) << child.name << " in " << key;
      walk(child, e.name, entering);
    }
  }
};

class ProjectWriterTest : public testSupport::TimelineFixture {
 protected:
  // One media of each kind with every element of the grammar, and what the
  // file can't hold: an audio transition, edge modifications without a
  // parameter or with one a reader won't know, a still trimmed past its length.
  boost::shared_ptr<VMFile> populate(const std::string& name) {
    const auto movie = add(video, clip(0, 300), 100);
    movie->opacity()->addKeyFrame(30, 0.25);
    movie->setScalar(2.5);
    movie->trimEnd(3);
    run(boost::make_shared<SetAttributeValueCmd<std::string>>(movie->ident(), name));
    const auto blur = GenericEffect::create("Blur", weak());
    run(AddEffectCmd::create(movie, blur));
    std::ofstream(testsupport::scratchFolder("project-writer") + "/cursor.txt") << "0.5 10 20\n";
    const auto metaData = ScreenMetaData::create(weak(), movie, project);
    metaData->setCursorLocationFile(testsupport::scratchFolder("project-writer") + "/cursor.txt");
    run(boost::make_shared<SetAttributeValueCmd<boost::shared_ptr<const ScreenMetaData>>>(
        movie->screenMetaData(), metaData));
    run(MoveLeftEdgeModCmd::create(movie, 20));
    const auto radius =
        boost::dynamic_pointer_cast<const Parameter<double>>(blur->parameterWithName("radius"));
    for (const EdgeModification& m :
         {EdgeModification(movie->opacity(), FadeInFunc()),
          EdgeModification(movie->sourceCropParam()->at(1), MixerXSlideInFunc()),
          EdgeModification(video->transformer()->translation()->at(1), MixerYSlideInFunc(30.5)),
          EdgeModification(project->visualMixer()->transformer()->rotation()->at(2), RotateFunc(2)),
          EdgeModification(boost::shared_ptr<const Parameter<double>>(), FadeInFunc()),
          EdgeModification(radius, FadeInFunc())})
      run(AddLeftEdgeModCmd::create(movie, m));
    for (const EdgeModification& m : {EdgeModification(movie->opacity(), FadeOutFunc()),
                                      EdgeModification(movie->opacity(), MixerXSlideOutFunc()),
                                      EdgeModification(movie->opacity(), MixerYSlideOutFunc())})
      run(AddRightEdgeModCmd::create(movie, m));
    const auto still = image(50);
    still->trimStart(-40);
    still->trimEnd(80);
    add(images, still, 500);
    run(AddEffectCmd::create(still, GenericEffect::create("Unknown", weak())));
    add(images, TextBox::create(name, 90, 320.5f, 40, weak()), 600)->text()->addKeyFrame(45, "<b>");
    add(images, Callout::create(0, 60, weak(), source, 0), 700);
    const auto wipe = add(video2, ImageTransition::create(20, weak()), 800);
    run(AddLeftEdgeModCmd::create(wipe, EdgeModification(wipe->opacity(), FadeInFunc())));
    const auto voice = add(audio, sound(0, 300), 100);
    run(LinkCmd::create(movie, voice));
    run(LinkCmd::create(voice, add(audio, AudioTransition::create(30, weak()), 400)));
    return movie;
  }

  std::string written() const {
    std::ostringstream out;
    ProjectWriter::write(*project, out);
    return out.str();
  }
};

TEST_F(ProjectWriterTest, FollowsTheGrammarWithIdentsPointingBackAndValuesThatReadBack) {
  const std::string name = "a&b<c>d\"e'f \n\t\r \xc3\xa9";
  const double numbers[] = {
      0.1, 1.0 / 3, -2.5e-300, 5e-324, 1.7976931348623157e308, 123456789.123456789, -0.0};
  const auto movie = populate(name);
  for (long long i = 0; i < 7; ++i) movie->opacity()->addKeyFrame(1000 + i, numbers[i]);
  const std::string xml = written();
  const Element root = parse(xml);
  GrammarWalk grammar;
  grammar.walk(root, "", true);
  std::set<std::string> all;
  for (const auto& rule : grammar.rules) all.insert(rule.first);
  EXPECT_EQ(all, grammar.seen);
  // Left out of ten: no parameter, an effect's, an image transition's own.
  EXPECT_EQ(7, grammar.edgeMods);
  EXPECT_EQ(0u, xml.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Project ", 0));
  EXPECT_EQ(std::string::npos, xml.find("AudioTransition"));

  const Element& media =
      root.children[1].children[0].children[3].children[0].children[2].children[0];
  EXPECT_EQ(name, media.children[1].children[0].atts.at("value"));
  for (long long i = 0; i < 7; ++i) {
    const double back = boost::lexical_cast<double>(
        media.children[0].children.back().children[1].children[2 + i].atts.at("value"));
    EXPECT_TRUE(back == numbers[i] && std::signbit(back) == std::signbit(numbers[i])) << numbers[i];
  }
}

TEST_F(ProjectWriterTest, ProjectsBuiltAlikeAreWrittenByteForByteAlike) {
  // Idents are numbered per document, so neither the objects made between
  // the two projects nor a second write changes the text.
  populate("clip");
  const std::string first = written();
  EXPECT_EQ(first, written());
  SetUp();
  populate("clip");
  EXPECT_EQ(first, written());
}

TEST_F(ProjectWriterTest, RefusesBeforeWritingAndNamesAFileItCannotWrite) {
  populate("clip");
  const std::string path = testsupport::scratchFolder("project-writer") + "/project.xml";
  ProjectWriter::write(*project, path);
  std::ifstream in(path);
  EXPECT_EQ(written(), std::string(std::istreambuf_iterator<char>(in), {}));
  std::remove(path.c_str());
  const std::string bad = testsupport::scratchFolder("project-writer") + "/missing/project.xml";
  EXPECT_NE(std::string::npos,
            mediatest::whatOf<IOException>([&] { ProjectWriter::write(*project, bad); }).find(bad));
  std::ostringstream failed;
  failed.setstate(std::ios::badbit);
  EXPECT_THROW(ProjectWriter::write(*project, failed), IOException);
  // A media of a source that the bin doesn't hold: nothing is written.
  add(video2,
      VMFile::create(Range<long long>(0, 10), weak(), Source::create(MediaFileStats::create()), 0),
      0);
  std::ostringstream refused;
  EXPECT_THROW(ProjectWriter::write(*project, refused), KelMediaLibException);
  EXPECT_EQ("", refused.str());
}

}  // namespace
}  // namespace KelMediaLib
