#include "host/host_link.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "tests/support/com_apartment.h"
#include "tests/support/fake_automation_host.h"

using testing::ElementsAre;

namespace {

std::vector<DISPID> Identifiers(const std::vector<ArrivedCall>& calls) {
    std::vector<DISPID> ids;
    for (const ArrivedCall& call : calls)
        ids.push_back(call.id);
    return ids;
}

class HostLinkConnection : public testing::Test {
protected:
    ComApartment apartment;
    FakeAutomationHost host;
    std::unique_ptr<HostLink> link = std::make_unique<HostLink>();
};

}  // namespace

TEST_F(HostLinkConnection, FailsWithoutARunningHost) {
    EXPECT_EQ(0, link->ConnectTo(nullptr));
    EXPECT_EQ(0u, host.Calls());
}

TEST_F(HostLinkConnection, FailsWhenTheHostRefusesAutomation) {
    host.root.offersAutomation = false;
    EXPECT_EQ(0, link->ConnectTo(&host.root));
    EXPECT_EQ(0u, host.Calls());
    EXPECT_EQ(0, host.References());
}

TEST_F(HostLinkConnection, ReadsTenPropertiesInOrderAndThenMakesThePostConnectCall) {
    EXPECT_EQ(1, link->ConnectTo(&host.root));
    EXPECT_THAT(Identifiers(host.root.calls), ElementsAre(3, 1, 4, 6, 9, 7, 26, 5, 8, 41, 24));
    EXPECT_EQ(11u, host.Calls());
}

TEST_F(HostLinkConnection, ReadsPropertiesWithoutArgumentsAndCallsAMethodOnce) {
    link->ConnectTo(&host.root);
    for (std::size_t i = 0; i < 10; ++i) {
        EXPECT_EQ(DISPATCH_PROPERTYGET, host.root.calls.at(i).kind);
        EXPECT_TRUE(host.root.calls.at(i).types.empty());
        EXPECT_TRUE(host.root.calls.at(i).resultAsked);
    }
    EXPECT_EQ(DISPATCH_METHOD, host.root.calls.at(10).kind);
    EXPECT_TRUE(host.root.calls.at(10).types.empty());
    EXPECT_TRUE(host.root.calls.at(10).resultAsked);
}

TEST_F(HostLinkConnection, HoldsOneReferenceToEachOfTheElevenObjects) {
    link->ConnectTo(&host.root);
    EXPECT_EQ(1, host.root.references);
    for (const auto& [property, object] : host.subObjects)
        EXPECT_EQ(1, object.references);
}

TEST_F(HostLinkConnection, ReleaseLeavesTheTenthSubObjectBound) {
    link->ConnectTo(&host.root);
    link->Release();
    EXPECT_EQ(1, host.tenth.references);
    EXPECT_EQ(1, host.References());
}

TEST_F(HostLinkConnection, DestructionAfterReleaseLetsTheTenthSubObjectGo) {
    link->ConnectTo(&host.root);
    link->Release();
    link.reset();
    EXPECT_EQ(0, host.References());
}

TEST_F(HostLinkConnection, ReleasesSubObjectsInSlotOrderAndTheRootLast) {
    std::vector<DISPID> released;
    for (auto& [property, object] : host.subObjects)
        object.onRelease = [&released, id = property] { released.push_back(id); };
    link->ConnectTo(&host.root);
    host.root.onRelease = [&released] { released.push_back(0); };
    link->Release();
    EXPECT_THAT(released, ElementsAre(3, 1, 4, 6, 9, 7, 26, 5, 8, 0));
    link.reset();  // the tenth sub-object goes while there is a list to note it
}

TEST_F(HostLinkConnection, DestructionGoesFromTheTenthSubObjectBackToTheRoot) {
    std::vector<DISPID> released;
    for (auto& [property, object] : host.subObjects)
        object.onRelease = [&released, id = property] { released.push_back(id); };
    link->ConnectTo(&host.root);
    host.root.onRelease = [&released] { released.push_back(0); };
    link.reset();
    EXPECT_THAT(released, ElementsAre(41, 8, 5, 26, 7, 9, 6, 4, 1, 3, 0));
}

TEST_F(HostLinkConnection, ReleaseOfADetachedLinkDoesNothing) {
    EXPECT_NO_THROW(link->Release());
}

TEST_F(HostLinkConnection, FailureOfAPropertyLeavesTheConnection) {
    const auto properties = host.root.answer;
    host.root.answer = [&](FakeCall& call) {
        if (call.Id() == 9) return call.FailWithException(L"Host", L"no licence", E_FAIL);
        return properties(call);
    };
    try {
        link->ConnectTo(&host.root);
        FAIL() << "connected without the support object";
    } catch (const AutomationError& error) {
        EXPECT_EQ(DISP_E_EXCEPTION, error.Status());
        EXPECT_EQ("no licence", error.Exception()->description);
    }
    EXPECT_THAT(Identifiers(host.root.calls), ElementsAre(3, 1, 4, 6, 9));
    link.reset();
    EXPECT_EQ(0, host.References());
}

TEST_F(HostLinkConnection, FailureOfThePostConnectCallLeavesTheConnection) {
    host.rootMethods = [](FakeCall&) { return E_ACCESSDENIED; };
    EXPECT_THROW(link->ConnectTo(&host.root), HostCallError);
    link.reset();
    EXPECT_EQ(0, host.References());
}

TEST_F(HostLinkConnection, PropertyThatIsNoObjectIsAFailure) {
    const auto properties = host.root.answer;
    host.root.answer = [&](FakeCall& call) {
        return call.Id() == 26 ? call.AnswerInteger(26) : properties(call);
    };
    EXPECT_THROW(link->ConnectTo(&host.root), HostCallError);
}

TEST_F(HostLinkConnection, AbsentSubObjectFailsOnlyTheQueriesThatNeedIt) {
    const auto properties = host.root.answer;
    host.root.answer = [&](FakeCall& call) {
        if (call.Id() != 5) return properties(call);
        V_VT(call.result()) = VT_DISPATCH;
        V_DISPATCH(call.result()) = nullptr;
        return S_OK;
    };
    EXPECT_EQ(1, link->ConnectTo(&host.root));
    EXPECT_EQ(0, link->GetNodeCount());
    EXPECT_THROW(link->AreResultsAvailable(), HostCallError);
}

TEST_F(HostLinkConnection, SecondConnectionWithoutARunningHostOnlyRepeatsThePostConnectCall) {
    link->ConnectTo(&host.root);
    host.ForgetCalls();
    EXPECT_EQ(1, link->ConnectTo(nullptr));
    EXPECT_THAT(Identifiers(host.root.calls), ElementsAre(24));
}

TEST_F(HostLinkConnection, SecondConnectionToARunningHostBindsEverythingAnew) {
    FakeAutomationHost second;
    link->ConnectTo(&host.root);
    EXPECT_EQ(1, link->ConnectTo(&second.root));
    EXPECT_EQ(0, host.References());
    EXPECT_EQ(11, second.References());
    link.reset();
    EXPECT_EQ(0, second.References());
}
