#include "clipbin/BundleSupport.h"
#include "clipbin/ZoomJob.h"
#include "core/Attribute.h"
#include "core/ParserException.h"
#include "media/media/VMFile.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/parser/MissingFileHandler.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/VisualMixer.h"
#include "media/timeline/VisualTrack.h"
#include "parser/OrvParser.h"
#include "project/OrvProject.h"
#include "support/ScratchFolder.h"

#include <boost/filesystem.hpp>
#include <gtest/gtest.h>

#include <string>

namespace {

namespace fs = boost::filesystem;

struct AnswerWith : KelMediaLib::MissingFileHandler {
  explicit AnswerWith(std::string path) : path(std::move(path)) {}
  std::string handleMissingFile(const std::string&) override { return path; }
  std::string path;
};

// A project keeps working after its recording moved: the user answers where
// the bundle went, and the screen's metadata files, written with the old
// paths, are found beside the video at the new place.
TEST(MovedBundleTest, AProjectFindsItsRecordingWhereTheUserSaysItWent) {
  const std::string folder = testsupport::scratchFolder("moved-bundle");
  const std::string bundle = bundletest::makeBundle(folder + "/rec.vdpak", {false, true});
  const std::string projectFile = folder + "/p.orvproj";
  OrvMediaLib::ZoomJob::run(bundle, projectFile, OrvMediaLib::ZoomJob::Settings());
  const std::string moved = folder + "/elsewhere.vdpak";
  fs::rename(bundle, moved);

  EXPECT_THROW(OrvMediaLib::OrvParser(nullptr, nullptr).parseProject(projectFile),
               KelMediaLib::ParserException);

  AnswerWith handler(moved);
  const auto project = OrvMediaLib::OrvParser(&handler, nullptr).parseProject(projectFile);
  ASSERT_TRUE(project);
  const auto track = project->timeline()->visualMixer()->tracks().at(0);
  const auto video = boost::dynamic_pointer_cast<const KelMediaLib::VMFile>(track->medias().at(0));
  ASSERT_TRUE(video);
  const auto metaData = video->screenMetaData()->value();
  ASSERT_TRUE(metaData);
  ASSERT_EQ(metaData->parameterFiles().size(), 4u);
  for (const auto& file : metaData->parameterFiles()) {
    EXPECT_EQ(fs::path(file.second).parent_path(), fs::path(moved)) << file.second;
  }
}

}  // namespace
