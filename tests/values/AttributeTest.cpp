#include "core/Attribute.h"
#include "core/KelMediaLibException.h"
#include "core/Observer.h"
#include "values/ParameterTestSupport.h"
#include "values/SetAttributeValueCmd.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/scoped_ptr.hpp>

#include <atomic>
#include <string>
#include <thread>
#include <tuple>
#include <typeinfo>
#include <vector>

namespace {

using namespace KelMediaLib;
using parameterTests::text;
using parameterTests::xmlOf;

// A shared value that the templates only pass around: incomplete where used.
struct Recording;
typedef boost::shared_ptr<const Recording> RecordingPtr;
RecordingPtr makeRecording();
void writeXMLValue(std::ostream& out, const RecordingPtr& recording) {
  out << !!recording;
}

// Records the attribute's value at each notification.
template <class T>
struct ValueLog : Observer {
  explicit ValueLog(const Attribute<T>& a) : attribute(a) {}
  void observerUpdate() override { seen.push_back(attribute.value()); }
  const Attribute<T>& attribute;
  std::vector<T> seen;
};

template <class T>
T sample() {
  return std::get<T>(std::make_tuple(-1.25, 0.75f, 4000000000u, std::string("a \"quoted\" <b> & c"),
                                     makeRecording()));
}

template <class T>
class SetAttributeValueCmdTest : public ::testing::Test {};
typedef ::testing::Types<double, float, unsigned int, std::string, RecordingPtr> AttributeTypes;
TYPED_TEST_SUITE(SetAttributeValueCmdTest, AttributeTypes);

TYPED_TEST(SetAttributeValueCmdTest, WritesThenNotifiesOncePerStep) {
  const TypeParam first = TypeParam();
  const TypeParam second = sample<TypeParam>();
  const auto attribute = boost::make_shared<Attribute<TypeParam>>("attr", first);
  ValueLog<TypeParam> log(*attribute);
  attribute->attach(&log);

  SetAttributeValueCmd<TypeParam> set(attribute, second);
  ASSERT_TRUE(set.execute(nullptr));
  ASSERT_TRUE(set.unexecute(nullptr));
  ASSERT_TRUE(set.reexecute(nullptr));
  // Each observer call already sees the value written.
  EXPECT_TRUE(log.seen == std::vector<TypeParam>({second, first, second}));
  EXPECT_TRUE(attribute->value() == second);
  EXPECT_EQ("<SetAttributeValueCmd attribute=\"" + text(attribute) + "\" value=\"" + text(second) +
                "\"/>\n",
            xmlOf(set));

  boost::scoped_ptr<Command> clone(set.clone());
  EXPECT_EQ(typeid(set), typeid(*clone));
  EXPECT_EQ("<SetAttributeValueCmd attribute=\"" + text(static_cast<const void*>(nullptr)) +
                "\" value=\"" + text(first) + "\"/>\n",
            xmlOf(*clone));
  EXPECT_THROW(clone->execute(nullptr), KelMediaLibException);
  EXPECT_EQ(3u, log.seen.size());
  attribute->detach(&log);
}

TEST(AttributeTest, ReadersOnOtherThreadsSeeWholeValues) {
  const std::string shortText = "short";
  const std::string longText(200, 'x');
  const auto attribute = boost::make_shared<Attribute<std::string>>("text", shortText);
  SetAttributeValueCmd<std::string> set(attribute, longText);

  std::atomic<bool> done(false);
  std::atomic<int> torn(0);
  std::thread reader([&] {
    while (!done) {
      const std::string seen = attribute->value();
      torn += seen != shortText && seen != longText;
    }
  });
  set.execute(nullptr);
  for (int i = 0; i < 2000; ++i) {
    set.unexecute(nullptr);
    set.reexecute(nullptr);
  }
  done = true;
  reader.join();
  EXPECT_EQ(0, torn.load());
}

struct Recording {};
RecordingPtr makeRecording() {
  return boost::make_shared<Recording>();
}

}  // namespace
