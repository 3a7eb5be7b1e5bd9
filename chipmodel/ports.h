// The chip's port numbers: which four numbers name a port, and its ingress and egress number.
#pragma once

#include "chipmodel/traffic.h"

namespace ldsdk::model {

// The four numbers name a port.
bool port_valid(const Port &port);

}  // namespace ldsdk::model
