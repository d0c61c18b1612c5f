#include "core/XMLText.h"
#include "core/XMLable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

using KelMediaLib::XMLable;

namespace {

// An element with a fixed name, an optional attribute and child elements.
class Element : public XMLable {
 public:
  Element(std::string name, std::string label, bool hasBody)
      : name_(std::move(name)), label_(std::move(label)), hasBody_(hasBody) {}

  void xmlName(Options& options) const override { options.out << name_; }
  void xmlAttributes(Options& options) const override {
    options.out << "label=\"";
    KelMediaLib::writeXMLValue(options.out, label_);
    options.out << "\" count=\"" << children.size() << '"';
  }
  void xmlBody(Options& options, int depth) const override {
    for (const Element* child : children) {
      child->toXML(options, depth, std::string());
    }
  }

  std::vector<const Element*> children;

 protected:
  bool xmlHasAttributes() const override { return !label_.empty(); }
  bool xmlHasBody() const override { return hasBody_; }

 private:
  std::string name_;
  std::string label_;
  bool hasBody_;
};

std::string write(const XMLable& element, int indent, const std::string& extra = std::string()) {
  std::ostringstream out;
  XMLable::Options options(out);
  element.toXML(options, indent, extra);
  return out.str();
}

TEST(XMLableTest, NestsChildrenTwoBlanksDeeperAndPutsExtraAttributesBehindOwnOnes) {
  Element leaf("Leaf", "x", false);
  Element empty("Empty", "", true);
  Element inner("Inner", "", true);
  inner.children = {&leaf};
  Element root("Root", "r", true);
  root.children = {&inner, &empty};

  EXPECT_EQ(
      "  <Root label=\"r\" count=\"2\" ref=\"1\">\n"
      "    <Inner>\n"
      "      <Leaf label=\"x\" count=\"0\"/>\n"
      "    </Inner>\n"
      "    <Empty>\n"
      "    </Empty>\n"
      "  </Root>\n",
      write(root, 1, " ref=\"1\""));
  EXPECT_EQ("<Empty/>\n", write(Element("Empty", "", false), -3));
}

TEST(XMLTextTest, EscapesMarkupQuotesAndWhitespaceThatAttributesWouldLose) {
  struct Case {
    std::string in;
    std::string out;
  };
  const Case cases[] = {
      {"", ""},
      {"plain text", "plain text"},
      {"a & b", "a &amp; b"},
      {"<tag>", "&lt;tag&gt;"},
      {"say \"hi\"", "say &quot;hi&quot;"},
      {"it's", "it's"},
      {"line\nnext\r\n", "line&#10;next&#13;&#10;"},
      {"a\tb", "a&#9;b"},
      {"&amp;", "&amp;amp;"},
      {"caf\xC3\xA9", "caf\xC3\xA9"},
      {"\xF0\x9F\x8E\xAC clip", "\xF0\x9F\x8E\xAC clip"},
      // What no XML document can hold becomes U+FFFD, one per byte.
      {std::string("a\x01"
                   "b\0c",
                   5),
       "a\xEF\xBF\xBD"
       "b\xEF\xBF\xBD"
       "c"},
      {"bad \xC3(", "bad \xEF\xBF\xBD("},
      {"cut \xE2\x82", "cut \xEF\xBF\xBD\xEF\xBF\xBD"},
      {"overlong \xC0\xAF", "overlong \xEF\xBF\xBD\xEF\xBF\xBD"},
      {"surrogate \xED\xA0\x80", "surrogate \xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
      {"nonchar \xEF\xBF\xBF", "nonchar \xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(c.out, KelMediaLib::xmlEscape(c.in)) << c.in;
    std::ostringstream out;
    KelMediaLib::writeXMLValue(out, c.in);
    EXPECT_EQ(c.out, out.str()) << c.in;
  }
}

TEST(XMLTextTest, NamedAttributesAndPlainDecimalIntegers) {
  std::ostringstream out;
  KelMediaLib::writeXMLAttribute(out, "name", std::string("a<b"));
  KelMediaLib::writeXMLAttribute(out, "n", std::numeric_limits<long long>::min());
  KelMediaLib::writeXMLAttribute(out, "u", 4294967295u);
  EXPECT_EQ(" name=\"a&lt;b\" n=\"-9223372036854775808\" u=\"4294967295\"", out.str());
}

TEST(XMLTextTest, DoublesReadBackToTheSameBitsInShortestForm) {
  struct Case {
    double value;
    const char* text;  // the shortest form, or null where only the round trip matters
  };
  const Case cases[] = {
      {0.0, "0"},
      {-0.0, "-0"},
      {1.0, "1"},
      {0.1, "0.1"},
      {-2.5, "-2.5"},
      {1.0 / 3.0, "0.3333333333333333"},
      {2.0 / 3.0, "0.6666666666666666"},
      {1e300, "1e+300"},
      {-1e-300, "-1e-300"},
      {123456789012345.0, "123456789012345"},
      {std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
      {std::numeric_limits<double>::min(), "2.2250738585072014e-308"},
      {std::numeric_limits<double>::denorm_min(), "5e-324"},
      {std::numeric_limits<double>::denorm_min() * 12345.0, nullptr},
      {std::nextafter(1.0, 2.0), "1.0000000000000002"},
  };
  for (const Case& c : cases) {
    std::ostringstream out;
    KelMediaLib::writeXMLValue(out, c.value);
    const std::string text = out.str();
    if (c.text) {
      EXPECT_EQ(c.text, text);
    }
    const double back = std::strtod(text.c_str(), nullptr);
    std::uint64_t want;
    std::uint64_t got;
    std::memcpy(&want, &c.value, sizeof want);
    std::memcpy(&got, &back, sizeof got);
    EXPECT_EQ(want, got) << text;
  }
}

TEST(XMLTextTest, FloatsUseTheShortestFloatForm) {
  const float values[] = {0.1f, 1.0f / 3.0f, -7.25f, 3.4e38f,
                          std::numeric_limits<float>::denorm_min()};
  const char* texts[] = {"0.1", "0.33333334", "-7.25", "3.4e+38", "1e-45"};
  for (std::size_t i = 0; i < sizeof values / sizeof values[0]; ++i) {
    std::ostringstream out;
    KelMediaLib::writeXMLValue(out, values[i]);
    EXPECT_EQ(texts[i], out.str());
    EXPECT_EQ(values[i], std::strtof(out.str().c_str(), nullptr));
  }
}

// A line gives the stream the text that the stream's own writers give, at
// every offset of its pieces against the end of its buffer: numbers that
// would cross it, a piece larger than it, deep indents, escaped strings.
TEST(XMLTextTest, ALineWritesWhatTheStreamWritersWrite) {
  const std::string large(3000, 'x');
  for (int shift = 0; shift < 40; ++shift) {
    std::ostringstream expected;
    std::ostringstream got;
    KelMediaLib::XMLLine line(got);
    auto literal = [&](const auto& text) {
      KelMediaLib::writeLiteral(expected, text);
      line.literal(text);
    };
    auto value = [&](const auto& v) {
      KelMediaLib::writeXMLValue(expected, v);
      line.value(v);
    };
    auto raw = [&](const std::string& text) {
      KelMediaLib::writeRaw(expected, text);
      line.raw(text.data(), text.size());
    };
    raw(std::string(static_cast<std::size_t>(shift), 'p'));
    for (int i = 0; i < 200; ++i) {
      const double number = 1.0 / 3.0 * i - 1e300 * (i % 2);
      KelMediaLib::writeIndent(expected, i % 40);
      line.indent(i % 40);
      literal("<K t=\"");
      value(std::numeric_limits<long long>::min() + i);
      literal("\" v=\"");
      value(number);
      value(static_cast<float>(number));
      value(std::string("a<\"b"));
      literal("\"/>\n");
      if (i % 50 == 0) {
        raw(large);
      }
    }
    line.flush();
    ASSERT_EQ(expected.str(), got.str()) << "shift " << shift;
  }
}

}  // namespace
