#pragma once

#include <memory>

#include "automation/calls/DispatchObject.h"
#include "entry/Services.h"

namespace host {

/// The service broker: `GetClassInstance`. The broker outlives its use; each service belongs to its object.
class BrokerObject final : public lumarin::automation::DispatchObject {
public:
    explicit BrokerObject(lumarin::ServiceBroker& broker);
};

/// A service of the host's as an automation object with the service's own members; null for one of no known
/// kind.
Microsoft::WRL::ComPtr<IDispatch> MakeServiceObject(std::unique_ptr<lumarin::HostService> service);

}  // namespace host
