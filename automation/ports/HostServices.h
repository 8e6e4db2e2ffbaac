#pragma once

#include "automation/calls/Object.h"
#include "entry/Services.h"

#include <memory>
#include <string>

namespace lumarin::automation {

/// The host's broker. Each service it gives is an object whose operations are called by name.
class Broker final : public ServiceBroker {
public:
    explicit Broker(Object broker) : broker_(std::move(broker)) {}
    std::unique_ptr<HostService> GetClassInstance(const std::string& name) override;

private:
    Object broker_;
};

}  // namespace lumarin::automation
