#include "zoomdrift/Zoomdrift.h"

namespace ZoomdriftNS {

Zoomdrift::~Zoomdrift() = default;

}  // namespace ZoomdriftNS
