#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "host/host_queries.h"
#include "tests/support/fake_automation_host.h"

/// Lets the fake automation objects answer all queries from a host of a test, by their dispatch
/// identifiers.
class AutomationAnswers {
public:
    /// Borrows both. `failsNow` is asked at every method call; a call for which it is true fails
    /// with the host's own exception.
    AutomationAnswers(FakeAutomationHost& objects, HostQueries& building,
                      std::function<bool()> failsNow)
        : building_(building), failsNow_(std::move(failsNow)) {
        objects.rootMethods = [this](FakeCall& call) {
            return Answer(call, &AutomationAnswers::Root);
        };
        Connect(objects.geometry, &AutomationAnswers::Geometry);
        Connect(objects.memberProperty, &AutomationAnswers::MemberProperty);
        Connect(objects.support, &AutomationAnswers::Support);
        Connect(objects.load, &AutomationAnswers::Load);
        Connect(objects.results, &AutomationAnswers::Results);
    }
    AutomationAnswers(const AutomationAnswers&) = delete;
    AutomationAnswers& operator=(const AutomationAnswers&) = delete;

private:
    using Method = HRESULT (AutomationAnswers::*)(FakeCall&);

    void Connect(FakeDispatch& object, Method method) {
        object.answer = [this, method](FakeCall& call) { return Answer(call, method); };
    }

    HRESULT Answer(FakeCall& call, Method method) {
        if (failsNow_())
            return call.FailWithException(L"Host", L"the model is being edited", E_FAIL);
        return (this->*method)(call);
    }

    static std::int32_t Number(FakeCall& call, UINT argument) {
        return V_I4(&call.argument(argument));
    }

    template <typename Value>
    static void Fill(SAFEARRAY* array, std::span<const Value> values) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            LONG index = static_cast<LONG>(i);
            Value value = values[i];
            SafeArrayPutElement(array, &index, &value);
        }
    }

    static std::vector<std::int32_t> Numbers(std::int32_t count) {
        return std::vector<std::int32_t>(static_cast<std::size_t>(count));
    }

    HRESULT Root(FakeCall& call) {
        if (call.Id() == 14) {
            const std::string path = building_.GetModelFilePath();
            SysReAllocString(&call.stringOutput(1), std::wstring(path.begin(), path.end()).c_str());
        }
        if (call.Id() == 34) return call.AnswerInteger(building_.GetBaseUnitSystem());
        return S_OK;
    }

    HRESULT Geometry(FakeCall& call) {
        switch (call.Id()) {
            case 43:
                return call.AnswerInteger(building_.GetNodeCount());
            case 44:
                return call.AnswerInteger(building_.GetMemberCount());
            case 48: {
                auto numbers = Numbers(building_.GetNodeCount());
                building_.GetNodeList(numbers);
                Fill<std::int32_t>(call.arrayOutput(1), numbers);
                return S_OK;
            }
            case 49: {
                auto numbers = Numbers(building_.GetMemberCount());
                building_.GetMemberList(numbers);
                Fill<std::int32_t>(call.arrayOutput(1), numbers);
                return S_OK;
            }
            case 31:
                building_.GetNodeCoordinates(Number(call, 1), call.doubleOutput(2),
                                             call.doubleOutput(3), call.doubleOutput(4));
                return S_OK;
            case 54: {
                std::int32_t start = 0;
                std::int32_t end = 0;
                building_.GetMemberIncidence(Number(call, 1), start, end);
                call.integerOutput(2) = start;
                call.integerOutput(3) = end;
                return S_OK;
            }
            case 101:
                return call.AnswerFlag(building_.IsZUp() ? -1 : 0);
            default:
                return DISP_E_MEMBERNOTFOUND;
        }
    }

    HRESULT MemberProperty(FakeCall& call) {
        return call.AnswerSingle(
            static_cast<float>(building_.GetMemberRotationAngle(Number(call, 1))));
    }

    HRESULT Support(FakeCall& call) {
        SixIntegers codes{};
        SixDoubles values{};
        const std::int32_t supported = building_.GetSupportInfo(Number(call, 1), codes, values);
        Fill<std::int32_t>(call.arrayOutput(2), codes);
        Fill<double>(call.arrayOutput(3), values);
        return call.AnswerInteger(supported);
    }

    HRESULT Load(FakeCall& call) {
        switch (call.Id()) {
            case 1:
                return call.AnswerInteger(building_.GetPrimaryLoadCaseCount());
            case 2:
                return call.AnswerInteger(building_.GetLoadCombinationCount());
            case 3: {
                auto numbers = Numbers(building_.GetPrimaryLoadCaseCount());
                building_.GetPrimaryLoadCaseNumbers(numbers);
                Fill<std::int32_t>(call.arrayOutput(1), numbers);
                return call.AnswerFlag(-1);
            }
            case 4: {
                auto numbers = Numbers(building_.GetLoadCombinationCount());
                building_.GetLoadCombinationNumbers(numbers);
                Fill<std::int32_t>(call.arrayOutput(1), numbers);
                return call.AnswerFlag(-1);
            }
            default:
                return DISP_E_MEMBERNOTFOUND;
        }
    }

    HRESULT Results(FakeCall& call) {
        SixDoubles six{};
        switch (call.Id()) {
            case 14:
                building_.GetNodeDisplacements(Number(call, 1), Number(call, 2), six);
                Fill<double>(call.arrayOutput(3), six);
                return call.AnswerFlag(-1);
            case 18:
                building_.GetMemberEndForces(Number(call, 1), Number(call, 2), Number(call, 3),
                                             six);
                Fill<double>(call.arrayOutput(4), six);
                return call.AnswerFlag(-1);
            case 38:
                return call.AnswerFlag(building_.AreResultsAvailable() ? -1 : 0);
            default:
                return DISP_E_MEMBERNOTFOUND;
        }
    }

    HostQueries& building_;
    std::function<bool()> failsNow_;
};
