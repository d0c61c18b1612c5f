// Inputs that once crashed the reader or let a foreign exception escape it
// (found by fuzzing, fuzz/project_reader_fuzzer.cpp). Each must now end the
// load with one of the reader's own exceptions and its text.

#include "actions/OrvException.h"
#include "core/KelMediaLibException.h"
#include "core/ParserException.h"
#include "parser/OrvParser.h"
#include "project/OrvProject.h"

#include <boost/lexical_cast/bad_lexical_cast.hpp>
#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

using namespace KelMediaLib;
using namespace OrvMediaLib;

// The document around a list of visual media, and around a source bin.
std::string withMedia(const std::string& medias) {
  return "<OrvProject version=\"1.0\"><Project id=\"1\" editRate=\"30/1\" version=\"1.0\">"
         "<Timeline><VisualMixer id=\"2\"><Tracks><VisualTrack id=\"3\"><Medias>" +
         medias +
         "</Medias></VisualTrack></Tracks></VisualMixer></Timeline></Project></OrvProject>";
}

std::string withSourceModifiedAt(const std::string& lastMod) {
  return "<OrvProject version=\"1.0\"><Project id=\"1\" editRate=\"30/1\" version=\"1.0\">"
         "<SourceBin><Source id=\"2\" src=\"" ORV_TEST_DATA_DIR "/clip.mp4\" lastMod=\"" +
         lastMod + "\" rect=\"(0,0,64,48)\"></Source></SourceBin></Project></OrvProject>";
}

// What a load ended with: the kind of exception and its text.
std::string outcome(const std::string& text) {
  OrvParser parser(nullptr, nullptr);
  std::istringstream in(text);
  try {
    return parser.parseProject(in) ? "loaded" : "no project";
  } catch (const ParserException& e) {
    // A fault in the file names where it is.
    EXPECT_GT(e.line, 0) << e.what();
    return std::string("ParserException ") + e.what();
  } catch (const KelMediaLibException& e) {
    return std::string("KelMediaLibException ") + e.what();
  } catch (const OrvException& e) {
    return std::string("OrvException ") + e.what();
  } catch (const boost::bad_lexical_cast&) {
    return "bad_lexical_cast";
  }
}

TEST(OrvParserHostileInputTest, EndsWithTheReadersOwnException) {
  const std::string lowest = "-9223372036854775808";
  struct Row {
    std::string input;
    std::string expected;
  };
  const Row rows[] = {
      // The opposite of the lowest sum of start trims has no value.
      {withMedia("<TextBox id=\"4\" start=\"0\" duration=\"10\" width=\"1\" height=\"1\" "
                 "trimStartSum=\"" +
                 lowest + "\"/>"),
       "ParserException trimStartSum " + lowest + " out of range"},
      {withMedia("<ImageTransition id=\"4\" start=\"0\" duration=\"10\"/>"
                 "<TextBox id=\"5\" start=\"20\" duration=\"10\" width=\"1\" height=\"1\" "
                 "trimStartSum=\"" +
                 lowest + "\"/>"),
       "ParserException trimStartSum " + lowest + " out of range"},
      // Dates that don't exist, and stamps too short for their fields.
      {withSourceModifiedAt("99999999T999999"),
       "ParserException Source lastMod \"99999999T999999\" isn't a time YYYYMMDDThhmmss"},
      {withSourceModifiedAt("20260230T000000"),
       "ParserException Source lastMod \"20260230T000000\" isn't a time YYYYMMDDThhmmss"},
      {withSourceModifiedAt("10000101T000000"),
       "ParserException Source lastMod \"10000101T000000\" isn't a time YYYYMMDDThhmmss"},
      {withSourceModifiedAt("2026"),
       "ParserException Source lastMod \"2026\" isn't a time YYYYMMDDThhmmss"},
      {withSourceModifiedAt("20260101T"),
       "ParserException Source lastMod \"20260101T\" isn't a time YYYYMMDDThhmmss"},
      {withSourceModifiedAt(""),
       "ParserException Source lastMod \"\" isn't a time YYYYMMDDThhmmss"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.input);
    EXPECT_EQ(row.expected, outcome(row.input));
  }
}

// The same documents with sound values load, so the rows above fail for the
// value they spoil and nothing else.
TEST(OrvParserHostileInputTest, TheDocumentsAroundTheRowsLoad) {
  EXPECT_EQ("loaded", outcome(withMedia("<TextBox id=\"4\" start=\"0\" duration=\"10\" "
                                        "width=\"1\" height=\"1\" trimStartSum=\"3\"/>")));
  EXPECT_EQ("loaded", outcome(withSourceModifiedAt("20991231T235959")));
}

}  // namespace
