#include "samplehost/sample_host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "host/host_link.h"
#include "host/host_operations.h"
#include "tests/support/com_apartment.h"
#include "tests/support/com_memory.h"

using Microsoft::WRL::ComPtr;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

// Two nodes, the first supported, one member between them, two load cases and one combination.
RecordedModel SmallModel() {
    RecordedModel model;
    model.baseUnitSystem = 1;
    model.zUp = true;
    model.resultsAvailable = true;
    model.nodeCount = 2;
    model.nodeList = {20, 10};
    model.memberCount = 1;
    model.memberList = {7};
    model.primaryLoadCaseCount = 2;
    model.primaryLoadCases = {3, 1};
    model.loadCombinationCount = 1;
    model.loadCombinations = {101};
    model.nodes[model.AddNode(20)].xyz = {1.5, 2.5, 3.5};
    model.nodes[model.AddNode(20)].support = 1;
    model.nodes[model.AddNode(10)].xyz = {1.5, 2.5, 7.0};
    model.nodes[model.AddNode(10)].support = 0;
    model.members[model.AddMember(7)].endNodes = {20, 10};
    model.members[model.AddMember(7)].beta = 30.5;
    model.displacements.Store(1, 3, {0.1, 0.2, 0.3, 0.4, 0.5, 0.6});
    model.endForces[1].Store(0, 3, {-1, -2, -3, -4, -5, -6});
    return model;
}

class SampleHostObjects : public testing::Test {
protected:
    SampleHostObjects() {
        root = MakeSampleHost(SmallModel(), L"D:\\jobs\\frame.ext", meter);
        link.ConnectTo(root.Get());
    }

    // An object of the host, by the root's property.
    ComPtr<IDispatch> SubObject(DISPID property) {
        AutomationDriver driver;
        root.Get()->AddRef();
        driver.Attach(root.Get());
        ComPtr<IDispatch> object;
        *object.ReleaseAndGetAddressOf() = driver.ReadObject({"sub-object", property});
        return object;
    }

    // What the host answers to a call that HostLink would never make.
    HRESULT Invoke(IDispatch* object, DISPID id, WORD flags, std::vector<VARIANT> lastFirst) {
        DISPPARAMS parameters{lastFirst.data(), nullptr, static_cast<UINT>(lastFirst.size()), 0};
        VARIANT result;
        VariantInit(&result);
        EXCEPINFO exception{};
        wrongArgument = 99;
        const HRESULT status = object->Invoke(id, IID_NULL, 0, flags, &parameters, &result,
                                              &exception, &wrongArgument);
        VariantClear(&result);
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        return status;
    }

    ComApartment apartment;
    std::shared_ptr<CallMeter> meter = std::make_shared<CallMeter>(std::chrono::milliseconds(0));
    ComPtr<IDispatch> root;
    HostLink link;
    UINT wrongArgument = 0;
};

}  // namespace

TEST_F(SampleHostObjects, AnswerForTheHostItself) {
    EXPECT_EQ("D:\\jobs\\frame.ext", link.GetModelFilePath());
    EXPECT_EQ(1, link.GetBaseUnitSystem());
}

TEST_F(SampleHostObjects, AnswerWithoutAModelPathByTakingTheStringAway) {
    HostLink other;
    other.ConnectTo(MakeSampleHost(SmallModel(), std::nullopt, meter).Get());
    EXPECT_EQ("", other.GetModelFilePath());
}

TEST_F(SampleHostObjects, AnswerForTheGeometry) {
    std::array<std::int32_t, 2> nodes{};
    std::array<std::int32_t, 1> members{};
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    std::int32_t start = 0;
    std::int32_t end = 0;
    EXPECT_EQ(2, link.GetNodeCount());
    link.GetNodeList(nodes);
    EXPECT_THAT(nodes, ElementsAre(20, 10));
    link.GetNodeCoordinates(20, x, y, z);
    EXPECT_THAT((std::array{x, y, z}), ElementsAre(1.5, 2.5, 3.5));
    EXPECT_EQ(1, link.GetMemberCount());
    link.GetMemberList(members);
    EXPECT_THAT(members, ElementsAre(7));
    link.GetMemberIncidence(7, start, end);
    EXPECT_EQ(20, start);
    EXPECT_EQ(10, end);
    EXPECT_TRUE(link.IsZUp());
}

TEST_F(SampleHostObjects, AnswerForMemberPropertiesAndSupports) {
    SixIntegers codes{9, 9, 9, 9, 9, 9};
    SixDoubles values{9, 9, 9, 9, 9, 9};
    EXPECT_EQ(30.5, link.GetMemberRotationAngle(7));
    EXPECT_EQ(1, link.GetSupportInfo(20, codes, values));
    EXPECT_THAT(codes, Each(0));
    EXPECT_THAT(values, Each(0.0));
    EXPECT_EQ(0, link.GetSupportInfo(10, codes, values));
}

TEST_F(SampleHostObjects, AnswerForTheLoads) {
    std::array<std::int32_t, 2> cases{};
    std::array<std::int32_t, 1> combinations{};
    EXPECT_EQ(2, link.GetPrimaryLoadCaseCount());
    EXPECT_EQ(1, link.GetLoadCombinationCount());
    EXPECT_NE(0, link.GetPrimaryLoadCaseNumbers(cases));
    EXPECT_NE(0, link.GetLoadCombinationNumbers(combinations));
    EXPECT_THAT(cases, ElementsAre(3, 1));
    EXPECT_THAT(combinations, ElementsAre(101));
}

TEST_F(SampleHostObjects, AnswerForTheResultsWithZerosWhereNothingIsRecorded) {
    SixDoubles values{};
    EXPECT_TRUE(link.AreResultsAvailable());
    link.GetNodeDisplacements(10, 3, values);
    EXPECT_THAT(values, ElementsAre(0.1, 0.2, 0.3, 0.4, 0.5, 0.6));
    link.GetMemberEndForces(7, 1, 3, values);
    EXPECT_THAT(values, ElementsAre(-1, -2, -3, -4, -5, -6));
    link.GetMemberEndForces(7, 0, 3, values);
    EXPECT_THAT(values, Each(0.0));
    link.GetNodeDisplacements(20, 555, values);
    EXPECT_THAT(values, Each(0.0));
}

TEST_F(SampleHostObjects, FailForANodeThatTheModelDoesNotHave) {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    try {
        link.GetNodeCoordinates(999, x, y, z);
        FAIL() << "node 999 was answered";
    } catch (const HostCallError& error) {
        EXPECT_EQ(DISP_E_EXCEPTION, error.Status());
        EXPECT_THAT(error.what(), HasSubstr("node 999 is not in the model (SampleHost)"));
    }
}

TEST_F(SampleHostObjects, FailWhereARecordingWasNotAsked) {
    RecordedModel model = SmallModel();
    model.recordedFor = RecordedFor{false, "tower.csv", std::string(64, 'a')};
    HostLink other;
    other.ConnectTo(MakeSampleHost(std::move(model), std::nullopt, meter).Get());
    SixDoubles values{};
    other.GetNodeDisplacements(10, 3, values);
    EXPECT_THAT(values, ElementsAre(0.1, 0.2, 0.3, 0.4, 0.5, 0.6));
    try {
        other.GetMemberEndForces(7, 0, 3, values);
        FAIL() << "an answer that was not recorded was given";
    } catch (const HostCallError& error) {
        EXPECT_EQ(DISP_E_EXCEPTION, error.Status());
        EXPECT_THAT(error.what(),
                    HasSubstr("does not hold the forces at the start (0) of member 7 under load "
                              "case 3, because it was made for the input file tower.csv; record "
                              "again with this run's input file, or with record --all"));
    }
}

TEST_F(SampleHostObjects, RefuseUnknownIdentifiers) {
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, Invoke(root.Get(), 999, DISPATCH_METHOD, {}));
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, Invoke(root.Get(), 999, DISPATCH_PROPERTYGET, {}));
    // A method of the geometry object, asked of the root.
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, Invoke(root.Get(), 43, DISPATCH_METHOD, {}));
}

TEST_F(SampleHostObjects, RefuseAMethodReadAsAPropertyAndAPropertyCalledAsAMethod) {
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, Invoke(root.Get(), 34, DISPATCH_PROPERTYGET, {}));
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND,
              Invoke(root.Get(), 34, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {}));
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, Invoke(root.Get(), 41, DISPATCH_METHOD, {}));
}

TEST_F(SampleHostObjects, RefuseAnotherNumberOfArguments) {
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, Invoke(root.Get(), 34, DISPATCH_METHOD, {NumberArgument(1)}));
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, Invoke(SubObject(6).Get(), 42, DISPATCH_METHOD, {}));
    EXPECT_EQ(DISP_E_BADPARAMCOUNT,
              Invoke(root.Get(), 1, DISPATCH_PROPERTYGET, {NumberArgument(1)}));
}

TEST_F(SampleHostObjects, RefuseAnArgumentOfAnotherTypeAndSayWhich) {
    double real = 0.0;
    LONG start = 0;
    // The third argument of GetMemberIncidence is an integer by reference, not a double.
    EXPECT_EQ(DISP_E_TYPEMISMATCH,
              Invoke(SubObject(1).Get(), 54, DISPATCH_METHOD,
                     {OutputArgument(real), OutputArgument(start), NumberArgument(7)}));
    EXPECT_EQ(0u, wrongArgument) << "counted from the last argument";
    // A member number is passed by value.
    LONG number = 7;
    EXPECT_EQ(DISP_E_TYPEMISMATCH,
              Invoke(SubObject(6).Get(), 42, DISPATCH_METHOD, {OutputArgument(number)}));
}

TEST_F(SampleHostObjects, RefuseNamedArgumentsAndOtherInterfaces) {
    VARIANT argument = NumberArgument(7);
    DISPID name = 1;
    DISPPARAMS named{&argument, &name, 1, 1};
    const ComPtr<IDispatch> properties = SubObject(6);
    EXPECT_EQ(DISP_E_NONAMEDARGS, properties->Invoke(42, IID_NULL, 0, DISPATCH_METHOD, &named,
                                                     nullptr, nullptr, nullptr));
    DISPPARAMS positional{&argument, nullptr, 1, 0};
    EXPECT_EQ(DISP_E_UNKNOWNINTERFACE, properties->Invoke(42, IID_IDispatch, 0, DISPATCH_METHOD,
                                                          &positional, nullptr, nullptr, nullptr));
}

TEST_F(SampleHostObjects, RefuseValuesThatNoClientPasses) {
    BSTR text = SysAllocString(L"");
    VARIANT textArgument;
    V_VT(&textArgument) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&textArgument) = &text;
    EXPECT_EQ(E_INVALIDARG,
              Invoke(root.Get(), 14, DISPATCH_METHOD, {FlagArgument(-1), textArgument}));
    SysFreeString(text);
    HostArray six(VT_R8, 6);
    EXPECT_EQ(E_INVALIDARG, Invoke(SubObject(5).Get(), 18, DISPATCH_METHOD,
                                   {NumberArgument(1), six.ByReference(), NumberArgument(3),
                                    NumberArgument(0), NumberArgument(7)}))
        << "the last argument is always 0";
    EXPECT_EQ(E_INVALIDARG, Invoke(SubObject(5).Get(), 18, DISPATCH_METHOD,
                                   {NumberArgument(0), six.ByReference(), NumberArgument(3),
                                    NumberArgument(2), NumberArgument(7)}))
        << "a member has ends 0 and 1";
}

TEST_F(SampleHostObjects, RefuseAnArrayOfAnotherSize) {
    std::array<std::int32_t, 3> tooMany{};
    std::array<std::int32_t, 1> tooFew{};
    EXPECT_THROW(link.GetNodeList(tooMany), HostCallError);
    EXPECT_THROW(link.GetNodeList(tooFew), HostCallError);
    EXPECT_THROW(link.GetPrimaryLoadCaseNumbers(tooMany), HostCallError);
}

TEST_F(SampleHostObjects, OfferNoNames) {
    wchar_t name[] = L"GetNodeCount";
    LPOLESTR names[] = {name};
    DISPID id = 0;
    EXPECT_EQ(DISP_E_UNKNOWNNAME, root->GetIDsOfNames(IID_NULL, names, 1, 0, &id));
}

TEST_F(SampleHostObjects, CountAnsweredAndRefusedCalls) {
    link.GetNodeCount();
    link.GetNodeCount();
    Invoke(root.Get(), 999, DISPATCH_METHOD, {});
    EXPECT_THAT(meter->Report(), HasSubstr("GetNodeCount 2\n"));
    EXPECT_THAT(meter->Report(), HasSubstr("Refused 1\n"));
    // Ten properties and PostConnectCall of the connection, and these three.
    EXPECT_EQ(14, meter->TotalCalls());
}

TEST(SampleHostLifetime, EndsWithItsLastReference) {
    const ComApartment apartment;
    const auto meter = std::make_shared<CallMeter>(std::chrono::milliseconds(0));
    ComPtr<IDispatch> root = MakeSampleHost(SmallModel(), std::nullopt, meter);
    EXPECT_LT(1, meter.use_count()) << "the objects share the meter";
    {
        HostLink link;
        link.ConnectTo(root.Get());
        root.Reset();
        EXPECT_EQ(2, link.GetNodeCount()) << "the client keeps the host alive";
    }
    EXPECT_EQ(1, meter.use_count());
}
