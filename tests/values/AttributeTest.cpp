#include "core/Attribute.h"
#include "core/KelMediaLibException.h"
#include "core/Observer.h"
#include "values/SetAttributeValueCmd.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/scoped_ptr.hpp>
#include <boost/shared_ptr.hpp>

#include <atomic>
#include <sstream>
#include <string>
#include <thread>
#include <typeinfo>
#include <vector>

namespace {

using namespace KelMediaLib;

// Stands in for a shared value type that the attribute only passes around:
// it stays incomplete wherever the templates are used.
struct Recording;
boost::shared_ptr<const Recording> makeRecording();

// The attribute writes its value in a project file; a shared value names it.
void writeXMLValue(std::ostream& out, const boost::shared_ptr<const Recording>& recording) {
  out << (recording ? "recording" : "none");
}

template <class T>
std::string traceText(const T& value) {
  std::ostringstream out;
  out << value;
  return out.str();
}
template <class U>
std::string traceText(const boost::shared_ptr<U>& value) {
  std::ostringstream out;
  out << static_cast<const void*>(value.get());
  return out.str();
}

std::string xmlOf(const XMLable& element) {
  std::ostringstream out;
  XMLable::Options options(out);
  element.toXML(options, 0, std::string());
  return out.str();
}

// Records the attribute's value at each notification.
template <class T>
class ValueLog : public Observer {
 public:
  explicit ValueLog(const Attribute<T>& attribute) : attribute_(attribute) {}
  void observerUpdate() override { seen.push_back(attribute_.value()); }
  std::vector<T> seen;

 private:
  const Attribute<T>& attribute_;
};

template <class T>
struct Values;
template <>
struct Values<double> {
  static double first() { return 0.5; }
  static double second() { return -1.25; }
};
template <>
struct Values<float> {
  static float first() { return 2.0f; }
  static float second() { return 0.75f; }
};
template <>
struct Values<unsigned int> {
  static unsigned int first() { return 7; }
  static unsigned int second() { return 4000000000u; }
};
template <>
struct Values<std::string> {
  static std::string first() { return "before"; }
  static std::string second() { return "a \"quoted\" <b> & c"; }
};
template <>
struct Values<boost::shared_ptr<const Recording>> {
  static boost::shared_ptr<const Recording> first() { return {}; }
  static boost::shared_ptr<const Recording> second() {
    static const boost::shared_ptr<const Recording> recording = makeRecording();
    return recording;
  }
};

template <class T>
class SetAttributeValueCmdTest : public ::testing::Test {
 protected:
  boost::shared_ptr<Attribute<T>> attribute =
      boost::make_shared<Attribute<T>>("attr", Values<T>::first());
};

typedef ::testing::Types<double, float, unsigned int, std::string,
                         boost::shared_ptr<const Recording>>
    AttributeTypes;
TYPED_TEST_SUITE(SetAttributeValueCmdTest, AttributeTypes);

TYPED_TEST(SetAttributeValueCmdTest, WritesThenNotifiesOncePerStep) {
  const TypeParam first = Values<TypeParam>::first();
  const TypeParam second = Values<TypeParam>::second();
  ValueLog<TypeParam> log(*this->attribute);
  this->attribute->attach(&log);

  SetAttributeValueCmd<TypeParam> set(this->attribute, second);
  ASSERT_TRUE(set.execute(nullptr));
  EXPECT_TRUE(this->attribute->value() == second);
  ASSERT_TRUE(set.unexecute(nullptr));
  EXPECT_TRUE(this->attribute->value() == first);
  ASSERT_TRUE(set.reexecute(nullptr));
  ASSERT_TRUE(set.unexecute(nullptr));

  // Each observer call sees the value already written.
  const std::vector<TypeParam> expected = {second, first, second, first};
  EXPECT_TRUE(log.seen == expected);
  this->attribute->detach(&log);

  EXPECT_EQ("<SetAttributeValueCmd attribute=\"" + traceText(this->attribute) + "\" value=\"" +
                traceText(second) + "\"/>\n",
            xmlOf(set));
}

TYPED_TEST(SetAttributeValueCmdTest, CloneIsABlankThatRefusesToRun) {
  SetAttributeValueCmd<TypeParam> set(this->attribute, Values<TypeParam>::second());
  boost::scoped_ptr<Command> clone(set.clone());
  EXPECT_EQ(typeid(set), typeid(*clone));
  EXPECT_EQ("<SetAttributeValueCmd attribute=\"" +
                traceText(boost::shared_ptr<const Attribute<TypeParam>>()) + "\" value=\"" +
                traceText(TypeParam()) + "\"/>\n",
            xmlOf(*clone));
  EXPECT_THROW(clone->execute(nullptr), KelMediaLibException);
  EXPECT_THROW(clone->unexecute(nullptr), KelMediaLibException);
  EXPECT_TRUE(this->attribute->value() == Values<TypeParam>::first());
}

TEST(AttributeTest, WritesItsIdentNameAndValueEscaped) {
  const struct {
    std::string name;
    std::string value;
    std::string nameText;
    std::string valueText;
  } cases[] = {
      {"title", "plain", "title", "plain"},
      {"say \"hi\"", "a<b & c>d", "say &quot;hi&quot;", "a&lt;b &amp; c&gt;d"},
  };
  for (const auto& c : cases) {
    Attribute<std::string> attribute(c.name, c.value);
    EXPECT_EQ("<Attribute id=\"" + std::to_string(attribute.xmlIdent()) + "\" name=\"" +
                  c.nameText + "\" value=\"" + c.valueText + "\"/>\n",
              xmlOf(attribute));
  }

  Attribute<double> width("width", 0.1);
  EXPECT_EQ("<Attribute id=\"" + std::to_string(width.xmlIdent()) +
                "\" name=\"width\" value=\"0.1\"/>\n",
            xmlOf(width));
  Attribute<double> height("height", 0.1);
  EXPECT_NE(width.xmlIdent(), height.xmlIdent());
}

TEST(AttributeTest, ReadersOnOtherThreadsSeeWholeValues) {
  const std::string shortText = "short";
  const std::string longText(200, 'x');
  auto attribute = boost::make_shared<Attribute<std::string>>("text", shortText);
  SetAttributeValueCmd<std::string> set(attribute, longText);

  std::atomic<bool> done(false);
  std::atomic<int> torn(0);
  std::thread reader([&] {
    while (!done) {
      const std::string seen = attribute->value();
      if (seen != shortText && seen != longText) {
        ++torn;
      }
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
  EXPECT_EQ(longText, attribute->value());
}

struct Recording {};

boost::shared_ptr<const Recording> makeRecording() { return boost::make_shared<Recording>(); }

}  // namespace
