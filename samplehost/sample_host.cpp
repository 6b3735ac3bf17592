#include "samplehost/sample_host.h"

#include <array>
#include <vector>

#include "host/host_operations.h"
#include "host/recorded_host.h"
#include "samplehost/automation_object.h"

namespace {

using Microsoft::WRL::ComPtr;

constexpr VARTYPE kNumber = VT_I4;
constexpr VARTYPE kIntegerOut = VT_BYREF | VT_I4;
constexpr VARTYPE kDoubleOut = VT_BYREF | VT_R8;
constexpr VARTYPE kTextOut = VT_BYREF | VT_BSTR;
constexpr VARTYPE kIntegers = VT_BYREF | VT_ARRAY | VT_I4;
constexpr VARTYPE kDoubles = VT_BYREF | VT_ARRAY | VT_R8;

// The model that all objects of one host answer from.
struct SampleModel {
    SampleModel(RecordedModel recorded, std::optional<std::wstring> path)
        : model(std::move(recorded)), modelPath(std::move(path)), host(model, {}) {}

    RecordedModel model;
    std::optional<std::wstring> modelPath;
    RecordedHost host;
};

using SharedModel = std::shared_ptr<SampleModel>;
using Object = ComPtr<AutomationObject>;

Object MakeObject(const std::shared_ptr<CallMeter>& meter) {
    Object object;
    *object.ReleaseAndGetAddressOf() = new AutomationObject(meter);
    return object;
}

// The only value that clients pass there.
void Require(bool isExpected, UINT argument) {
    if (!isExpected) throw RefusedArgument{argument, E_INVALIDARG};
}

void AddRootMethods(AutomationObject& root, const SharedModel& model) {
    root.AddMethod(kGetModelFilePath, {kTextOut, VT_BOOL}, [model](const ServedCall& call) {
        Require(call.Flag(2) == 1, 2);
        call.PutText(1, model->modelPath ? model->modelPath->c_str() : nullptr);
    });
    root.AddMethod(kPostConnectCall, {}, [](const ServedCall&) {});
    root.AddMethod(kGetBaseUnitSystem, {}, [model](const ServedCall& call) {
        call.AnswerInteger(model->host.GetBaseUnitSystem());
    });
}

void AddGeometryMethods(AutomationObject& geometry, const SharedModel& model) {
    geometry.AddMethod(kGetNodeCount, {}, [model](const ServedCall& call) {
        call.AnswerInteger(model->host.GetNodeCount());
    });
    geometry.AddMethod(kGetNodeList, {kIntegers}, [model](const ServedCall& call) {
        call.PutArray(1, std::span<const std::int32_t>(*model->model.nodeList));
    });
    geometry.AddMethod(kGetNodeCoordinates, {kNumber, kDoubleOut, kDoubleOut, kDoubleOut},
                       [model](const ServedCall& call) {
                           model->host.GetNodeCoordinates(call.Number(1), call.DoubleOutput(2),
                                                          call.DoubleOutput(3),
                                                          call.DoubleOutput(4));
                       });
    geometry.AddMethod(kGetMemberCount, {}, [model](const ServedCall& call) {
        call.AnswerInteger(model->host.GetMemberCount());
    });
    geometry.AddMethod(kGetMemberList, {kIntegers}, [model](const ServedCall& call) {
        call.PutArray(1, std::span<const std::int32_t>(*model->model.memberList));
    });
    geometry.AddMethod(kGetMemberIncidence, {kNumber, kIntegerOut, kIntegerOut},
                       [model](const ServedCall& call) {
                           std::int32_t start = 0;
                           std::int32_t end = 0;
                           model->host.GetMemberIncidence(call.Number(1), start, end);
                           call.IntegerOutput(2) = start;
                           call.IntegerOutput(3) = end;
                           call.AnswerFlag(true);
                       });
    geometry.AddMethod(kIsZUp, {},
                       [model](const ServedCall& call) { call.AnswerFlag(model->host.IsZUp()); });
}

void AddMemberPropertyMethods(AutomationObject& properties, const SharedModel& model) {
    properties.AddMethod(kGetMemberRotationAngle, {kNumber}, [model](const ServedCall& call) {
        call.AnswerSingle(static_cast<float>(model->host.GetMemberRotationAngle(call.Number(1))));
    });
}

void AddSupportMethods(AutomationObject& support, const SharedModel& model) {
    support.AddMethod(kGetSupportInfo, {kNumber, kIntegers, kDoubles},
                      [model](const ServedCall& call) {
                          SixIntegers codes{};
                          SixDoubles values{};
                          const std::int32_t isSupported =
                              model->host.GetSupportInfo(call.Number(1), codes, values);
                          call.PutArray(2, std::span<const std::int32_t>(codes));
                          call.PutArray(3, std::span<const double>(values));
                          call.AnswerInteger(isSupported);
                      });
}

void AddLoadMethods(AutomationObject& load, const SharedModel& model) {
    load.AddMethod(kGetPrimaryLoadCaseCount, {}, [model](const ServedCall& call) {
        call.AnswerInteger(model->host.GetPrimaryLoadCaseCount());
    });
    load.AddMethod(kGetLoadCombinationCount, {}, [model](const ServedCall& call) {
        call.AnswerInteger(model->host.GetLoadCombinationCount());
    });
    load.AddMethod(kGetPrimaryLoadCaseNumbers, {kIntegers}, [model](const ServedCall& call) {
        call.PutArray(1, std::span<const std::int32_t>(*model->model.primaryLoadCases));
        call.AnswerFlag(true);
    });
    load.AddMethod(kGetLoadCombinationNumbers, {kIntegers}, [model](const ServedCall& call) {
        call.PutArray(1, std::span<const std::int32_t>(*model->model.loadCombinations));
        call.AnswerFlag(true);
    });
}

void AddResultsMethods(AutomationObject& results, const SharedModel& model) {
    results.AddMethod(kGetNodeDisplacements, {kNumber, kNumber, kDoubles},
                      [model](const ServedCall& call) {
                          SixDoubles values{};
                          model->host.GetNodeDisplacements(call.Number(1), call.Number(2), values);
                          call.PutArray(3, std::span<const double>(values));
                          call.AnswerFlag(true);
                      });
    results.AddMethod(kGetMemberEndForces, {kNumber, kNumber, kNumber, kDoubles, kNumber},
                      [model](const ServedCall& call) {
                          Require(call.Number(2) == 0 || call.Number(2) == 1, 2);
                          Require(call.Number(5) == 0, 5);
                          SixDoubles forces{};
                          model->host.GetMemberEndForces(call.Number(1), call.Number(2),
                                                         call.Number(3), forces);
                          call.PutArray(4, std::span<const double>(forces));
                          call.AnswerFlag(true);
                      });
    results.AddMethod(kAreResultsAvailable, {}, [model](const ServedCall& call) {
        call.AnswerFlag(model->host.AreResultsAvailable());
    });
}

}  // namespace

ComPtr<IDispatch> MakeSampleHost(RecordedModel model, std::optional<std::wstring> modelPath,
                                 const std::shared_ptr<CallMeter>& meter) {
    const auto shared = std::make_shared<SampleModel>(std::move(model), std::move(modelPath));
    std::array<Object, std::size(kSubObjects)> subObjects;
    const Object root = MakeObject(meter);
    for (std::size_t i = 0; i < subObjects.size(); ++i) {
        subObjects[i] = MakeObject(meter);
        root->AddProperty(kSubObjects[i], subObjects[i]);
    }
    AddRootMethods(*root.Get(), shared);
    AddGeometryMethods(*subObjects[kGeometry - 1].Get(), shared);
    AddMemberPropertyMethods(*subObjects[kMemberProperty - 1].Get(), shared);
    AddSupportMethods(*subObjects[kSupport - 1].Get(), shared);
    AddLoadMethods(*subObjects[kLoad - 1].Get(), shared);
    AddResultsMethods(*subObjects[kResults - 1].Get(), shared);
    return root;
}
