#include "media/effects/Effectable.h"

#include "core/KelMediaLibException.h"
#include "media/effects/Effect.h"

#include <algorithm>
#include <string>

namespace KelMediaLib {

Effectable::Effectable() = default;

Effectable::Effectable(const Effectable&) {}

// Effects may outlive their holder in a command's undo record: they mustn't
// keep a pointer to it.
Effectable::~Effectable() {
  for (const boost::shared_ptr<Effect>& effect : effects_) {
    effect->setOwner(nullptr);
  }
}

int Effectable::numEffects() const { return static_cast<int>(effects_.size()); }

boost::shared_ptr<const Effect> Effectable::effectAt(int index) const {
  checkIndex(index, "read");
  return effects_[static_cast<std::size_t>(index)];
}

int Effectable::indexOfEffect(const Effect* effect) const {
  for (std::size_t i = 0; i < effects_.size(); ++i) {
    if (effects_[i].get() == effect) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

void Effectable::insertEffect(boost::shared_ptr<Effect> effect, int index) {
  if (!effect) {
    throw KelMediaLibException("can't insert a null effect");
  }
  if (effect->owner() || indexOfEffect(effect.get()) >= 0) {
    throw KelMediaLibException("effect \"" + effect->name() + "\" (" +
                               std::to_string(effect->xmlIdent()) + ") is held already");
  }
  const int size = numEffects();
  if (index == -1) {
    index = size;
  }
  if (index < 0 || index > size) {
    throw KelMediaLibException("can't insert an effect at index " + std::to_string(index) +
                               " of a list of " + std::to_string(size));
  }
  effects_.insert(effects_.begin() + index, effect);
  effect->setOwner(effectsOwner());
  effectsChanged();
}

boost::shared_ptr<Effect> Effectable::removeEffect(int index) {
  checkIndex(index, "remove");
  boost::shared_ptr<Effect> removed = effects_[static_cast<std::size_t>(index)];
  effects_.erase(effects_.begin() + index);
  removed->setOwner(nullptr);
  effectsChanged();
  return removed;
}

void Effectable::swapEffects(int first, int second) {
  checkIndex(first, "swap");
  checkIndex(second, "swap");
  std::swap(effects_[static_cast<std::size_t>(first)], effects_[static_cast<std::size_t>(second)]);
  effectsChanged();
}

void Effectable::effectsChanged() {}

void Effectable::checkIndex(int index, const char* what) const {
  if (index < 0 || index >= numEffects()) {
    throw KelMediaLibException(std::string("can't ") + what + " the effect at index " +
                               std::to_string(index) + " of a list of " +
                               std::to_string(numEffects()));
  }
}

}  // namespace KelMediaLib
