#pragma once

#include <oaidl.h>
#include <wrl/client.h>

#include <memory>
#include <optional>
#include <string>

#include "host/recorded_model.h"
#include "samplehost/call_meter.h"

/// The automation objects of a host that holds one analysed model: the root with its ten
/// sub-objects, which answer the nineteen methods and nothing else.
///
/// `modelPath` is what clients get as the path of the model file; without a value they get no
/// string. The objects live as long as anybody holds the root.
Microsoft::WRL::ComPtr<IDispatch> MakeSampleHost(RecordedModel model,
                                                 std::optional<std::wstring> modelPath,
                                                 const std::shared_ptr<CallMeter>& meter);
