#include "values/VectorParam.h"

#include "core/KelMediaLibException.h"
#include "core/XMLText.h"

#include <ostream>
#include <utility>

namespace KelMediaLib {

boost::shared_ptr<VectorParam> VectorParam::create(boost::weak_ptr<const ThreadSafe> project,
                                                   const std::string& name,
                                                   const std::vector<double>& defaults) {
  std::vector<boost::shared_ptr<InterpolatingParam<double>>> members;
  members.reserve(defaults.size());
  for (std::size_t i = 0; i < defaults.size(); ++i) {
    members.push_back(
        InterpolatingParam<double>::create(project, name + std::to_string(i), defaults[i]));
  }
  return boost::shared_ptr<VectorParam>(new VectorParam(name, std::move(members)));
}

VectorParam::VectorParam(const std::string& name,
                         std::vector<boost::shared_ptr<InterpolatingParam<double>>> members)
    : name_(name), members_(std::move(members)) {}

boost::shared_ptr<InterpolatingParam<double>> VectorParam::at(int index) const {
  if (index < 0 || index >= numDimensions()) {
    throw KelMediaLibException("vector parameter \"" + name_ + "\" has no dimension " +
                               std::to_string(index) + "; it has " +
                               std::to_string(numDimensions()));
  }
  return members_[static_cast<std::size_t>(index)];
}

std::vector<double> VectorParam::valueAt(double time) const {
  std::vector<double> values;
  values.reserve(members_.size());
  for (const auto& member : members_) {
    values.push_back(member->valueAt(time));
  }
  return values;
}

void VectorParam::copyKeyFramesFrom(const VectorParam& source) {
  if (source.numDimensions() != numDimensions()) {
    throw KelMediaLibException("vector parameter \"" + name_ + "\" has " +
                               std::to_string(numDimensions()) +
                               " dimensions and can't copy the key frames of \"" + source.name_ +
                               "\", which has " + std::to_string(source.numDimensions()));
  }
  for (std::size_t i = 0; i < members_.size(); ++i) {
    members_[i]->copyKeyFramesFrom(*source.members_[i]);
  }
}

void VectorParam::xmlName(Options& options) const { writeLiteral(options.out, "VectorParam"); }

void VectorParam::xmlAttributes(Options& options) const {
  writeLiteral(options.out, "id=\"");
  writeXMLValue(options.out, options.ident(*this));
  writeLiteral(options.out, "\" name=\"");
  writeXMLValue(options.out, name_);
  options.out << '"';
}

void VectorParam::xmlBody(Options& options, int depth) const {
  // Members are written by ident alone: their names follow from the vector's.
  for (const auto& member : members_) {
    writeIndent(options.out, depth);
    writeLiteral(options.out, "<InterpolatingParam id=\"");
    writeXMLValue(options.out, options.ident(*member));
    writeLiteral(options.out, "\">\n");
    member->xmlBody(options, depth + 1);
    writeIndent(options.out, depth);
    writeLiteral(options.out, "</InterpolatingParam>\n");
  }
}

}  // namespace KelMediaLib
