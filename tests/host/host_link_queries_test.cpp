#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <functional>
#include <vector>

#include "host/host_link.h"
#include "tests/support/com_apartment.h"
#include "tests/support/com_memory.h"
#include "tests/support/fake_automation_host.h"

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;

namespace {

constexpr VARTYPE kNumber = VT_I4;
constexpr VARTYPE kNumberOut = 0x4003;
constexpr VARTYPE kDoubleOut = 0x4005;
constexpr VARTYPE kStringOut = 0x4008;
constexpr VARTYPE kIntegers = 0x6003;
constexpr VARTYPE kDoubles = 0x6005;

constexpr SixDoubles kSixZeros{};

// What each of the nineteen queries must look like at the host. The lists have two elements here.
struct QueryShape {
    const char* name;
    std::function<FakeDispatch&(FakeAutomationHost&)> object;
    DISPID id;
    std::vector<VARTYPE> types;
    bool resultAsked;
    std::function<void(HostLink&)> ask;
};

FakeDispatch& Root(FakeAutomationHost& host) {
    return host.root;
}
FakeDispatch& Geometry(FakeAutomationHost& host) {
    return host.geometry;
}
FakeDispatch& MemberProperty(FakeAutomationHost& host) {
    return host.memberProperty;
}
FakeDispatch& Support(FakeAutomationHost& host) {
    return host.support;
}
FakeDispatch& Load(FakeAutomationHost& host) {
    return host.load;
}
FakeDispatch& Results(FakeAutomationHost& host) {
    return host.results;
}

const std::vector<QueryShape>& AllQueries() {
    static const std::vector<QueryShape> queries = {
        {"GetModelFilePath",
         Root,
         14,
         {kStringOut, VT_BOOL},
         false,
         [](HostLink& link) { link.GetModelFilePath(); }},
        {"PostConnectCall", Root, 24, {}, true, [](HostLink& link) { link.PostConnectCall(); }},
        {"GetBaseUnitSystem", Root, 34, {}, true, [](HostLink& link) { link.GetBaseUnitSystem(); }},
        {"GetNodeCount", Geometry, 43, {}, true, [](HostLink& link) { link.GetNodeCount(); }},
        {"GetNodeList",
         Geometry,
         48,
         {kIntegers},
         false,
         [](HostLink& link) {
             std::array<std::int32_t, 2> numbers{};
             link.GetNodeList(numbers);
         }},
        {"GetNodeCoordinates",
         Geometry,
         31,
         {kNumber, kDoubleOut, kDoubleOut, kDoubleOut},
         false,
         [](HostLink& link) {
             double x = 0.0;
             double y = 0.0;
             double z = 0.0;
             link.GetNodeCoordinates(1, x, y, z);
         }},
        {"GetMemberCount", Geometry, 44, {}, true, [](HostLink& link) { link.GetMemberCount(); }},
        {"GetMemberList",
         Geometry,
         49,
         {kIntegers},
         false,
         [](HostLink& link) {
             std::array<std::int32_t, 2> numbers{};
             link.GetMemberList(numbers);
         }},
        {"GetMemberIncidence",
         Geometry,
         54,
         {kNumber, kNumberOut, kNumberOut},
         true,
         [](HostLink& link) {
             std::int32_t start = 0;
             std::int32_t end = 0;
             link.GetMemberIncidence(1, start, end);
         }},
        {"IsZUp", Geometry, 101, {}, true, [](HostLink& link) { link.IsZUp(); }},
        {"GetMemberRotationAngle",
         MemberProperty,
         42,
         {kNumber},
         true,
         [](HostLink& link) { link.GetMemberRotationAngle(1); }},
        {"GetSupportInfo",
         Support,
         8,
         {kNumber, kIntegers, kDoubles},
         true,
         [](HostLink& link) {
             SixIntegers codes{};
             SixDoubles values{};
             link.GetSupportInfo(1, codes, values);
         }},
        {"GetPrimaryLoadCaseCount",
         Load,
         1,
         {},
         true,
         [](HostLink& link) { link.GetPrimaryLoadCaseCount(); }},
        {"GetLoadCombinationCount",
         Load,
         2,
         {},
         true,
         [](HostLink& link) { link.GetLoadCombinationCount(); }},
        {"GetPrimaryLoadCaseNumbers",
         Load,
         3,
         {kIntegers},
         true,
         [](HostLink& link) {
             std::array<std::int32_t, 2> numbers{};
             link.GetPrimaryLoadCaseNumbers(numbers);
         }},
        {"GetLoadCombinationNumbers",
         Load,
         4,
         {kIntegers},
         true,
         [](HostLink& link) {
             std::array<std::int32_t, 2> numbers{};
             link.GetLoadCombinationNumbers(numbers);
         }},
        {"GetNodeDisplacements",
         Results,
         14,
         {kNumber, kNumber, kDoubles},
         true,
         [](HostLink& link) {
             SixDoubles values{};
             link.GetNodeDisplacements(1, 2, values);
         }},
        {"GetMemberEndForces",
         Results,
         18,
         {kNumber, kNumber, kNumber, kDoubles, kNumber},
         true,
         [](HostLink& link) {
             SixDoubles values{};
             link.GetMemberEndForces(1, 0, 2, values);
         }},
        {"AreResultsAvailable",
         Results,
         38,
         {},
         true,
         [](HostLink& link) { link.AreResultsAvailable(); }},
    };
    return queries;
}

class HostLinkQueries : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(1, link.ConnectTo(&host.root));
        host.ForgetCalls();
    }

    // Lets the object that a query goes to answer as told.
    void AnswerWith(const QueryShape& query, const FakeDispatch::Answer& answer) {
        FakeDispatch& object = query.object(host);
        if (&object == &host.root) {
            host.rootMethods = answer;
        } else {
            object.answer = answer;
        }
    }

    ComApartment apartment;
    FakeAutomationHost host;
    HostLink link;
};

// A host that puts its own array in place of the caller's.
template <typename Value>
void ReplaceArray(SAFEARRAY*& array, VARTYPE type, const std::vector<Value>& values) {
    SafeArrayDestroy(array);
    array = SafeArrayCreateVector(type, 0, static_cast<ULONG>(values.size()));
    void* memory = nullptr;
    SafeArrayAccessData(array, &memory);
    std::memcpy(memory, values.data(), values.size() * sizeof(Value));
    SafeArrayUnaccessData(array);
}

// A host that fills the caller's array in place.
template <typename Value>
void FillArray(SAFEARRAY* array, const std::vector<Value>& values) {
    for (LONG i = 0; i < static_cast<LONG>(values.size()); ++i) {
        Value value = values[static_cast<std::size_t>(i)];
        SafeArrayPutElement(array, &i, &value);
    }
}

// The value field of a result holds 64 bits; the caller may use the low ones alone.
HRESULT AnswerRawBits(FakeCall& call, LONGLONG bits) {
    V_VT(call.result()) = VT_I8;
    call.result()->llVal = bits;
    return S_OK;
}

}  // namespace

TEST_F(HostLinkQueries, AreNineteen) {
    EXPECT_EQ(19u, AllQueries().size());
}

TEST_F(HostLinkQueries, EachMakesOneMethodCallToItsObject) {
    for (const QueryShape& query : AllQueries()) {
        SCOPED_TRACE(query.name);
        host.ForgetCalls();
        query.ask(link);
        ASSERT_EQ(1u, query.object(host).calls.size());
        EXPECT_EQ(1u, host.Calls());
        EXPECT_EQ(query.id, query.object(host).calls[0].id);
        EXPECT_EQ(DISPATCH_METHOD, query.object(host).calls[0].kind);
        EXPECT_EQ(0u, query.object(host).calls[0].namedArguments);
    }
}

TEST_F(HostLinkQueries, PassArgumentsOfExactlyTheHostsTypes) {
    for (const QueryShape& query : AllQueries()) {
        SCOPED_TRACE(query.name);
        query.ask(link);
        EXPECT_THAT(query.object(host).calls.back().types, ElementsAreArray(query.types));
    }
}

TEST_F(HostLinkQueries, AskForAResultWhereTheHostGivesOne) {
    for (const QueryShape& query : AllQueries()) {
        SCOPED_TRACE(query.name);
        query.ask(link);
        EXPECT_EQ(query.resultAsked, query.object(host).calls.back().resultAsked);
    }
}

TEST_F(HostLinkQueries, PassArraysThatCarryTheirElementType) {
    for (const QueryShape& query : AllQueries()) {
        SCOPED_TRACE(query.name);
        query.ask(link);
        for (const USHORT features : query.object(host).calls.back().arrayFeatures)
            EXPECT_NE(0, features & FADF_HAVEVARTYPE);
    }
}

TEST_F(HostLinkQueries, RaiseAFailingStatusAtOnce) {
    for (const QueryShape& query : AllQueries()) {
        SCOPED_TRACE(query.name);
        AnswerWith(query, [](FakeCall&) { return E_ACCESSDENIED; });
        host.ForgetCalls();
        try {
            query.ask(link);
            ADD_FAILURE() << "no exception";
        } catch (const HostCallError& error) {
            EXPECT_EQ(E_ACCESSDENIED, error.Status());
            EXPECT_THAT(error.what(), HasSubstr(query.name));
        }
        EXPECT_EQ(1u, host.Calls()) << "asked again";
    }
}

TEST_F(HostLinkQueries, RaiseTheHostsOwnExceptionWithItsText) {
    for (const QueryShape& query : AllQueries()) {
        SCOPED_TRACE(query.name);
        AnswerWith(query, [](FakeCall& call) {
            return call.FailWithException(L"Host", L"the model is being edited", E_FAIL);
        });
        try {
            query.ask(link);
            ADD_FAILURE() << "no exception";
        } catch (const HostCallError& error) {
            EXPECT_EQ(DISP_E_EXCEPTION, error.Status());
            EXPECT_THAT(error.what(), HasSubstr("the model is being edited"));
        }
    }
}

TEST_F(HostLinkQueries, LeaveNoMemoryBehindButTheTwoLoadNumberArrays) {
    for (const QueryShape& query : AllQueries()) {
        SCOPED_TRACE(query.name);
        query.ask(link);  // room for the fake's own notes
        const bool keepsItsArray = &query.object(host) == &host.load && query.id >= 3;
        const ComMemoryCounter memory;
        query.ask(link);
        EXPECT_EQ(keepsItsArray ? 1 : 0, memory.BlocksInUse());
    }
}

TEST_F(HostLinkQueries, LeaveNoMemoryBehindWhenTheyFail) {
    for (const QueryShape& query : AllQueries()) {
        SCOPED_TRACE(query.name);
        AnswerWith(query, [](FakeCall& call) {
            return call.FailWithException(L"Host", L"the model is being edited", E_FAIL);
        });
        const ComMemoryCounter memory;
        EXPECT_THROW(query.ask(link), HostCallError);
        EXPECT_EQ(0, memory.BlocksInUse());
    }
}

TEST_F(HostLinkQueries, HoldNoFurtherReferencesToTheHost) {
    for (const QueryShape& query : AllQueries())
        query.ask(link);
    EXPECT_EQ(11, host.References());
}

// The host itself.

TEST_F(HostLinkQueries, ModelFilePathStartsAsAnEmptyStringWithTheFlagOne) {
    link.GetModelFilePath();
    EXPECT_THAT(host.root.calls.at(0).texts, ElementsAre(L""));
    EXPECT_THAT(host.root.calls.at(0).numbers, ElementsAre(1));
}

TEST_F(HostLinkQueries, ModelFilePathIsWhatTheHostPutsInTheString) {
    host.rootMethods = [](FakeCall& call) {
        SysReAllocString(&call.stringOutput(1), L"D:\\jobs\\frame.ext");
        return S_OK;
    };
    const ComMemoryCounter memory;
    EXPECT_EQ("D:\\jobs\\frame.ext", link.GetModelFilePath());
    EXPECT_EQ(0, memory.BlocksInUse());
}

TEST_F(HostLinkQueries, ModelFilePathIsEmptyWhenTheHostReturnsNoString) {
    host.rootMethods = [](FakeCall& call) {
        SysFreeString(call.stringOutput(1));
        call.stringOutput(1) = nullptr;
        return S_OK;
    };
    EXPECT_EQ("", link.GetModelFilePath());
}

TEST_F(HostLinkQueries, ModelFilePathIsEmptyWhenTheHostLeavesTheStringAlone) {
    EXPECT_EQ("", link.GetModelFilePath());
}

// The result of the host's code page for the same text, asked of Windows directly.
TEST_F(HostLinkQueries, ModelFilePathComesInTheNarrowCodePage) {
    const wchar_t path[] = L"D:\\jobs\\Stra\u00DFe.ext";
    host.rootMethods = [&](FakeCall& call) {
        SysReAllocString(&call.stringOutput(1), path);
        return S_OK;
    };
    std::array<char, 64> expected{};
    WideCharToMultiByte(CP_ACP, 0, path, -1, expected.data(), 64, nullptr, nullptr);
    EXPECT_EQ(std::string(expected.data()), link.GetModelFilePath());
}

TEST_F(HostLinkQueries, PostConnectCallDiscardsItsResult) {
    host.rootMethods = [](FakeCall& call) {
        V_VT(call.result()) = VT_BSTR;
        V_BSTR(call.result()) = SysAllocString(L"welcome");
        return S_OK;
    };
    const ComMemoryCounter memory;
    link.PostConnectCall();
    EXPECT_EQ(0, memory.BlocksInUse());
}

TEST_F(HostLinkQueries, BaseUnitSystemIsA32BitResult) {
    host.rootMethods = [](FakeCall& call) { return AnswerRawBits(call, 0x5555555500000001); };
    EXPECT_EQ(1, link.GetBaseUnitSystem());
}

// The geometry.

TEST_F(HostLinkQueries, CountsAre32BitResults) {
    const struct {
        const char* name;
        FakeDispatch& object;
        std::int32_t (HostLink::*count)();
    } counts[] = {{"nodes", host.geometry, &HostLink::GetNodeCount},
                  {"members", host.geometry, &HostLink::GetMemberCount},
                  {"primary load cases", host.load, &HostLink::GetPrimaryLoadCaseCount},
                  {"load combinations", host.load, &HostLink::GetLoadCombinationCount}};
    for (const auto& c : counts) {
        SCOPED_TRACE(c.name);
        c.object.answer = [](FakeCall& call) { return AnswerRawBits(call, 0x5555555500012345); };
        EXPECT_EQ(0x12345, (link.*c.count)());
        c.object.answer = [](FakeCall& call) { return AnswerRawBits(call, 0x00000000FFFFFFFE); };
        EXPECT_EQ(-2, (link.*c.count)());
    }
}

TEST_F(HostLinkQueries, NumberListsComeInTheHostsOrder) {
    host.geometry.answer = [](FakeCall& call) {
        FillArray<LONG>(call.arrayOutput(1), {30, -10, 20});
        return S_OK;
    };
    std::array<std::int32_t, 3> nodes{};
    std::array<std::int32_t, 3> members{};
    link.GetNodeList(nodes);
    link.GetMemberList(members);
    EXPECT_THAT(nodes, ElementsAre(30, -10, 20));
    EXPECT_THAT(members, ElementsAre(30, -10, 20));
}

TEST_F(HostLinkQueries, NumberListsOfNothingAreAskedForWithAnEmptyArray) {
    link.GetNodeList({});
    link.GetMemberList({});
    ASSERT_EQ(2u, host.geometry.calls.size());
    EXPECT_TRUE(host.geometry.calls[0].integerArrays.at(0).empty());
    EXPECT_TRUE(host.geometry.calls[1].integerArrays.at(0).empty());
}

TEST_F(HostLinkQueries, NumberListsTakeAnArrayThatTheHostReplaces) {
    host.geometry.answer = [](FakeCall& call) {
        ReplaceArray<LONG>(call.arrayOutput(1), VT_I4, {4, 5, 6});
        return S_OK;
    };
    const ComMemoryCounter memory;
    std::array<std::int32_t, 2> numbers{};
    link.GetNodeList(numbers);
    link.GetMemberList(numbers);
    EXPECT_THAT(numbers, ElementsAre(4, 5));
    EXPECT_EQ(0, memory.BlocksInUse());
}

TEST_F(HostLinkQueries, NumberListsRaiseTheFirstElementThatCannotBeFetched) {
    host.geometry.answer = [](FakeCall& call) {
        ReplaceArray<LONG>(call.arrayOutput(1), VT_I4, {4});
        return S_OK;
    };
    const ComMemoryCounter memory;
    std::array<std::int32_t, 2> numbers{};
    for (const auto list : {&HostLink::GetNodeList, &HostLink::GetMemberList}) {
        try {
            (link.*list)(numbers);
            ADD_FAILURE() << "no exception";
        } catch (const HostCallError& error) {
            EXPECT_EQ(DISP_E_BADINDEX, error.Status());
        }
    }
    EXPECT_EQ(0, memory.BlocksInUse());
}

TEST_F(HostLinkQueries, NumberListsRaiseAnArrayThatTheHostTookAway) {
    host.geometry.answer = [](FakeCall& call) {
        SafeArrayDestroy(call.arrayOutput(1));
        call.arrayOutput(1) = nullptr;
        return S_OK;
    };
    std::array<std::int32_t, 2> numbers{};
    EXPECT_THROW(link.GetNodeList(numbers), HostCallError);
}

TEST_F(HostLinkQueries, NodeCoordinatesAreWrittenStraightToTheCaller) {
    host.geometry.answer = [](FakeCall& call) {
        call.doubleOutput(2) = 1.25;
        call.doubleOutput(3) = -2.5;
        call.doubleOutput(4) = 3.75;
        return S_OK;
    };
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    link.GetNodeCoordinates(17, x, y, z);
    EXPECT_THAT(host.geometry.calls.at(0).numbers, ElementsAre(17));
    EXPECT_EQ(1.25, x);
    EXPECT_EQ(-2.5, y);
    EXPECT_EQ(3.75, z);
}

TEST_F(HostLinkQueries, MemberIncidenceIsTheStartAndTheEndNode) {
    host.geometry.answer = [](FakeCall& call) {
        call.integerOutput(2) = 11;
        call.integerOutput(3) = -12;
        return S_OK;
    };
    std::int32_t start = 0;
    std::int32_t end = 0;
    link.GetMemberIncidence(5, start, end);
    EXPECT_THAT(host.geometry.calls.at(0).numbers, ElementsAre(5));
    EXPECT_EQ(11, start);
    EXPECT_EQ(-12, end);
}

TEST_F(HostLinkQueries, MemberIncidenceKeepsWhatTheHostDoesNotTouch) {
    std::int32_t start = 3;
    std::int32_t end = 4;
    link.GetMemberIncidence(5, start, end);
    EXPECT_EQ(3, start);
    EXPECT_EQ(4, end);
}

TEST_F(HostLinkQueries, FlagsAreSixteenBitsAndAnyButZeroIsTrue) {
    const struct {
        const char* name;
        FakeDispatch& object;
        bool (HostLink::*flag)();
    } flags[] = {{"IsZUp", host.geometry, &HostLink::IsZUp},
                 {"AreResultsAvailable", host.results, &HostLink::AreResultsAvailable}};
    for (const auto& f : flags) {
        SCOPED_TRACE(f.name);
        f.object.answer = [](FakeCall& call) { return call.AnswerFlag(VARIANT_TRUE); };
        EXPECT_TRUE((link.*f.flag)());
        f.object.answer = [](FakeCall& call) { return call.AnswerFlag(1); };
        EXPECT_TRUE((link.*f.flag)());
        f.object.answer = [](FakeCall& call) { return AnswerRawBits(call, 0x5555555555550000); };
        EXPECT_FALSE((link.*f.flag)());
    }
}

// Member properties and supports.

TEST_F(HostLinkQueries, RotationAngleIsSinglePrecisionWidened) {
    // 0x3DCCCCCD is the single-precision number nearest to 0.1.
    host.memberProperty.answer = [](FakeCall& call) {
        return AnswerRawBits(call, 0x555555553DCCCCCD);
    };
    EXPECT_EQ(static_cast<double>(0.1f), link.GetMemberRotationAngle(9));
    EXPECT_THAT(host.memberProperty.calls.at(0).numbers, ElementsAre(9));
}

TEST_F(HostLinkQueries, SupportInfoCopiesBothArraysOut) {
    host.support.answer = [](FakeCall& call) {
        FillArray<LONG>(call.arrayOutput(2), {1, 2, 3, 4, 5, 6});
        FillArray<double>(call.arrayOutput(3), {0.5, 1.5, 2.5, 3.5, 4.5, 5.5});
        return AnswerRawBits(call, 0x5555555500000007);
    };
    SixIntegers codes{};
    SixDoubles values{};
    EXPECT_EQ(7, link.GetSupportInfo(42, codes, values));
    EXPECT_THAT(host.support.calls.at(0).numbers, ElementsAre(42));
    EXPECT_THAT(codes, ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_THAT(values, ElementsAre(0.5, 1.5, 2.5, 3.5, 4.5, 5.5));
}

TEST_F(HostLinkQueries, SupportInfoPassesTwoEmptyArraysOfSix) {
    SixIntegers codes{9, 9, 9, 9, 9, 9};
    SixDoubles values{9, 9, 9, 9, 9, 9};
    link.GetSupportInfo(42, codes, values);
    EXPECT_THAT(host.support.calls.at(0).integerArrays.at(0), ElementsAre(0, 0, 0, 0, 0, 0));
    EXPECT_THAT(host.support.calls.at(0).doubleArrays.at(0), ElementsAreArray(kSixZeros));
}

TEST_F(HostLinkQueries, SupportInfoDestroysBothArraysWhenOneCannotBeFetched) {
    host.support.answer = [](FakeCall& call) {
        ReplaceArray<double>(call.arrayOutput(3), VT_R8, {0.5, 1.5});
        return S_OK;
    };
    SixIntegers codes{};
    SixDoubles values{};
    const ComMemoryCounter memory;
    EXPECT_THROW(link.GetSupportInfo(42, codes, values), HostCallError);
    EXPECT_EQ(0, memory.BlocksInUse());
}

TEST_F(HostLinkQueries, SupportInfoTakesArraysThatTheHostReplaces) {
    host.support.answer = [](FakeCall& call) {
        ReplaceArray<LONG>(call.arrayOutput(2), VT_I4, {6, 5, 4, 3, 2, 1});
        ReplaceArray<double>(call.arrayOutput(3), VT_R8, {6.5, 5.5, 4.5, 3.5, 2.5, 1.5});
        return S_OK;
    };
    SixIntegers codes{};
    SixDoubles values{};
    const ComMemoryCounter memory;
    link.GetSupportInfo(42, codes, values);
    EXPECT_THAT(codes, ElementsAre(6, 5, 4, 3, 2, 1));
    EXPECT_THAT(values, ElementsAre(6.5, 5.5, 4.5, 3.5, 2.5, 1.5));
    EXPECT_EQ(0, memory.BlocksInUse());
}

// The loads.

using LoadNumbers = std::int16_t (HostLink::*)(std::span<std::int32_t>);
constexpr LoadNumbers kLoadNumberQueries[] = {&HostLink::GetPrimaryLoadCaseNumbers,
                                              &HostLink::GetLoadCombinationNumbers};

TEST_F(HostLinkQueries, LoadNumbersHandTheCallersBufferToTheHost) {
    for (const LoadNumbers query : kLoadNumberQueries) {
        std::array<std::int32_t, 3> numbers{71, 72, 73};
        (link.*query)(numbers);
        EXPECT_THAT(host.load.calls.back().integerArrays.at(0), ElementsAre(71, 72, 73));
        EXPECT_THAT(numbers, ElementsAre(71, 72, 73)) << "the host changed nothing";
    }
}

TEST_F(HostLinkQueries, LoadNumbersComeInTheHostsOrder) {
    host.load.answer = [](FakeCall& call) {
        FillArray<LONG>(call.arrayOutput(1), {3, 1, 2});
        return AnswerRawBits(call, 0x555555555555FFFE);
    };
    for (const LoadNumbers query : kLoadNumberQueries) {
        std::array<std::int32_t, 3> numbers{};
        EXPECT_EQ(-2, (link.*query)(numbers)) << "0xFFFE as a signed 16-bit value";
        EXPECT_THAT(numbers, ElementsAre(3, 1, 2));
    }
}

TEST_F(HostLinkQueries, LoadNumbersOfNothingAreStillAskedFor) {
    for (const LoadNumbers query : kLoadNumberQueries) {
        host.ForgetCalls();
        (link.*query)({});
        ASSERT_EQ(1u, host.load.calls.size());
        EXPECT_TRUE(host.load.calls[0].integerArrays.at(0).empty());
    }
}

TEST_F(HostLinkQueries, LoadNumbersLeaveTheirArrayStanding) {
    for (const LoadNumbers query : kLoadNumberQueries) {
        SAFEARRAY* kept = nullptr;
        host.load.answer = [&](FakeCall& call) {
            kept = call.arrayOutput(1);
            return S_OK;
        };
        std::array<std::int32_t, 3> numbers{};
        const ComMemoryCounter memory;
        (link.*query)(numbers);
        EXPECT_EQ(1, memory.BlocksInUse());
        SafeArrayDestroy(kept);
        EXPECT_EQ(0, memory.BlocksInUse());
    }
}

TEST_F(HostLinkQueries, LoadNumbersDestroyTheirArrayWhenAnElementCannotBeFetched) {
    host.load.answer = [](FakeCall& call) {
        ReplaceArray<LONG>(call.arrayOutput(1), VT_I4, {3, 1});
        return S_OK;
    };
    for (const LoadNumbers query : kLoadNumberQueries) {
        std::array<std::int32_t, 3> numbers{};
        const ComMemoryCounter memory;
        EXPECT_THROW((link.*query)(numbers), HostCallError);
        EXPECT_EQ(0, memory.BlocksInUse());
    }
}

// The results.

TEST_F(HostLinkQueries, DisplacementsAskForANodeUnderALoadCase) {
    host.results.answer = [](FakeCall& call) {
        FillArray<double>(call.arrayOutput(3), {0.1, 0.2, 0.3, 0.4, 0.5, 0.6});
        return AnswerRawBits(call, 0x5555555555550009);
    };
    SixDoubles values{};
    EXPECT_EQ(9, link.GetNodeDisplacements(8, 102, values));
    EXPECT_THAT(host.results.calls.at(0).numbers, ElementsAre(8, 102));
    EXPECT_THAT(values, ElementsAre(0.1, 0.2, 0.3, 0.4, 0.5, 0.6));
}

TEST_F(HostLinkQueries, EndForcesAskForAMemberEndUnderALoadCaseAndEndWithZero) {
    host.results.answer = [](FakeCall& call) {
        FillArray<double>(call.arrayOutput(4), {-1, -2, -3, -4, -5, -6});
        return AnswerRawBits(call, 0x5555555555550009);
    };
    SixDoubles values{};
    EXPECT_EQ(9, link.GetMemberEndForces(8, 1, 102, values));
    EXPECT_THAT(host.results.calls.at(0).numbers, ElementsAre(8, 1, 102, 0));
    EXPECT_THAT(values, ElementsAre(-1, -2, -3, -4, -5, -6));
}

TEST_F(HostLinkQueries, ResultsAreZeroWhereTheHostLeavesTheArrayUntouched) {
    SixDoubles displacements{9, 9, 9, 9, 9, 9};
    SixDoubles forces{9, 9, 9, 9, 9, 9};
    link.GetNodeDisplacements(8, 102, displacements);
    link.GetMemberEndForces(8, 1, 102, forces);
    EXPECT_THAT(displacements, Each(0.0));
    EXPECT_THAT(forces, Each(0.0));
}

TEST_F(HostLinkQueries, ResultsAreZeroBeforeAFailingCall) {
    host.results.answer = [](FakeCall&) { return E_FAIL; };
    SixDoubles displacements{9, 9, 9, 9, 9, 9};
    SixDoubles forces{9, 9, 9, 9, 9, 9};
    EXPECT_THROW(link.GetNodeDisplacements(8, 102, displacements), HostCallError);
    EXPECT_THROW(link.GetMemberEndForces(8, 1, 102, forces), HostCallError);
    EXPECT_THAT(displacements, Each(0.0));
    EXPECT_THAT(forces, Each(0.0));
}

TEST_F(HostLinkQueries, ResultsTakeAnArrayThatTheHostReplaces) {
    host.results.answer = [](FakeCall& call) {
        // The array is argument 3 of the displacements and argument 4 of the end forces.
        SAFEARRAY*& array = call.arrayOutput(call.ArgumentCount() == 3 ? 3 : 4);
        ReplaceArray<double>(array, VT_R8, {1, 2, 3, 4, 5, 6, 7});
        return S_OK;
    };
    SixDoubles displacements{};
    SixDoubles forces{};
    const ComMemoryCounter memory;
    link.GetNodeDisplacements(8, 102, displacements);
    link.GetMemberEndForces(8, 1, 102, forces);
    EXPECT_THAT(displacements, ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_THAT(forces, ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_EQ(0, memory.BlocksInUse());
}

TEST_F(HostLinkQueries, ResultsRaiseAnArrayThatIsTooShort) {
    host.results.answer = [](FakeCall& call) {
        SAFEARRAY*& array = call.arrayOutput(call.ArgumentCount() == 3 ? 3 : 4);
        ReplaceArray<double>(array, VT_R8, {1, 2, 3, 4, 5});
        return S_OK;
    };
    SixDoubles values{};
    const ComMemoryCounter memory;
    EXPECT_THROW(link.GetNodeDisplacements(8, 102, values), HostCallError);
    EXPECT_THROW(link.GetMemberEndForces(8, 1, 102, values), HostCallError);
    EXPECT_EQ(0, memory.BlocksInUse());
}
