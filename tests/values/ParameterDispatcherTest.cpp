#include "values/ParameterDispatcher.h"

#include "values/AudioPosition.h"
#include "values/Color.h"
#include "values/InterpolatingParam.h"
#include "values/LeftParameter.h"
#include "values/Parameter.h"
#include "values/ParameterTestSupport.h"
#include "values/Point.h"
#include "values/Rect.h"
#include "values/TransformMatrix.h"

#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

using namespace KelMediaLib;

namespace {

// Records which form was called and with which object.
class RecordingDispatcher : public ParameterDispatcher {
 public:
  using ParameterDispatcher::receive;
  void receive(const boost::shared_ptr<Parameter<double>>& p) override { note("double", p.get()); }
  void receive(const boost::shared_ptr<Parameter<float>>& p) override { note("float", p.get()); }
  void receive(const boost::shared_ptr<Parameter<int>>& p) override { note("int", p.get()); }
  void receive(const boost::shared_ptr<Parameter<Point>>& p) override { note("Point", p.get()); }
  void receive(const boost::shared_ptr<Parameter<Color>>& p) override { note("Color", p.get()); }
  void receive(const boost::shared_ptr<Parameter<AudioPosition>>& p) override {
    note("AudioPosition", p.get());
  }
  void receive(const boost::shared_ptr<Parameter<Rect<float>>>& p) override {
    note("Rect", p.get());
  }
  void receive(const boost::shared_ptr<Parameter<TransformMatrix>>& p) override {
    note("TransformMatrix", p.get());
  }
  void receive(const boost::shared_ptr<Parameter<std::string>>& p) override {
    note("string", p.get());
  }
  void receive(const boost::shared_ptr<Parameter<std::vector<Rect<float>>>>& p) override {
    note("Rects", p.get());
  }
  void receive(
      const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<double>>>>& p) override {
    note("Interpolater<double>", p.get());
  }
  void receive(
      const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<Point>>>>& p) override {
    note("Interpolater<Point>", p.get());
  }

  std::vector<std::string> calls;
  const void* object = nullptr;

 private:
  void note(const char* form, const ParameterInterface* parameter) {
    calls.push_back(form);
    object = parameter;
  }
};

TEST(ParameterDispatcherTest, ReachesTheFormOfTheParametersValueType) {
  const boost::shared_ptr<ThreadSafe> project = parameterTests::newProject();
  const auto anchor = InterpolatingParam<Point>::create(project, "anchor", Point());
  const auto opacity = InterpolatingParam<double>::create(project, "opacity", 1.0);
  const struct {
    boost::shared_ptr<ParameterInterface> parameter;
    const char* form;
  } cases[] = {
      {Parameter<double>::create(project, "d", 0.0), "double"},
      {opacity, "double"},
      {Parameter<float>::create(project, "f", 0.0f), "float"},
      {InterpolatingParam<float>::create(project, "fov", 1.0f), "float"},
      {Parameter<int>::create(project, "i", 0), "int"},
      {anchor, "Point"},
      {InterpolatingParam<Color>::create(project, "c", Color()), "Color"},
      {InterpolatingParam<AudioPosition>::create(project, "a", AudioPosition()), "AudioPosition"},
      {Parameter<Rect<float>>::create(project, "r", Rect<float>()), "Rect"},
      {Parameter<TransformMatrix>::create(project, "m", TransformMatrix()), "TransformMatrix"},
      {LeftParameter<std::string>::create(project, "text", ""), "string"},
      {Parameter<std::vector<Rect<float>>>::create(project, "dirty", {}), "Rects"},
      {opacity->interpolaterParameter(), "Interpolater<double>"},
      {anchor->interpolaterParameter(), "Interpolater<Point>"},
  };
  for (const auto& c : cases) {
    RecordingDispatcher dispatcher;
    c.parameter->dispatch(dispatcher);
    EXPECT_EQ(std::vector<std::string>{c.form}, dispatcher.calls) << c.parameter->name();
    EXPECT_EQ(static_cast<const void*>(c.parameter.get()), dispatcher.object)
        << c.parameter->name();
  }
}

}  // namespace
