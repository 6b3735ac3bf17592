#include "host/automation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <new>

#include "tests/support/com_apartment.h"
#include "tests/support/com_memory.h"
#include "tests/support/fake_dispatch.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr HostOperation kMethod{"GetSomething", 77};

class AutomationDriverTest : public testing::Test {
protected:
    void Attach() {
        fake.AddRef();
        driver.Attach(&fake);
    }

    AutomationError FailureOf(std::initializer_list<VARIANT> arguments = {}) {
        try {
            driver.Call(kMethod, arguments);
        } catch (const AutomationError& error) {
            return error;
        }
        ADD_FAILURE() << "the call did not fail";
        return {S_OK, ""};
    }

    ComApartment apartment;
    FakeDispatch fake;
    AutomationDriver driver;
};

}  // namespace

TEST_F(AutomationDriverTest, StartsDetached) {
    EXPECT_FALSE(driver.IsAttached());
}

TEST_F(AutomationDriverTest, TakesOverTheReferenceItIsGiven) {
    Attach();
    EXPECT_TRUE(driver.IsAttached());
    EXPECT_EQ(1, fake.references);
}

TEST_F(AutomationDriverTest, ReleasesExactlyTheReferenceItWasGiven) {
    fake.AddRef();  // somebody else's
    Attach();
    driver.Release();
    EXPECT_FALSE(driver.IsAttached());
    EXPECT_EQ(1, fake.references);
}

TEST_F(AutomationDriverTest, ReleasesOnceOnly) {
    Attach();
    driver.Release();
    driver.Release();
    EXPECT_EQ(1, fake.releasesSeen);
}

TEST_F(AutomationDriverTest, LetsGoWhenDestroyed) {
    {
        AutomationDriver shortLived;
        fake.AddRef();
        shortLived.Attach(&fake);
    }
    EXPECT_EQ(0, fake.references);
}

TEST_F(AutomationDriverTest, LetsGoOfTheOldObjectWhenItAttachesToAnother) {
    FakeDispatch other;
    Attach();
    other.AddRef();
    driver.Attach(&other);
    EXPECT_EQ(0, fake.references);
    EXPECT_EQ(1, other.references);
    driver.Release();
}

TEST_F(AutomationDriverTest, CallsAMethodByIdentifierInTheNeutralLocale) {
    Attach();
    driver.Call(kMethod);
    ASSERT_EQ(1u, fake.calls.size());
    EXPECT_EQ(77, fake.calls[0].id);
    EXPECT_EQ(DISPATCH_METHOD, fake.calls[0].kind);
    EXPECT_TRUE(fake.calls[0].nullInterfaceId);
    EXPECT_EQ(0u, fake.calls[0].locale);
}

TEST_F(AutomationDriverTest, PassesArgumentsByPositionInDeclarationOrder) {
    Attach();
    driver.Call(kMethod, {NumberArgument(10), NumberArgument(20), NumberArgument(30)});
    EXPECT_THAT(fake.calls.at(0).numbers, ElementsAre(10, 20, 30));
    EXPECT_EQ(0u, fake.calls.at(0).namedArguments);
}

TEST_F(AutomationDriverTest, AsksForAResultOnlyWhenItIsWanted) {
    Attach();
    driver.Call(kMethod);
    driver.Run(kMethod, {});
    EXPECT_TRUE(fake.calls.at(0).resultAsked);
    EXPECT_FALSE(fake.calls.at(1).resultAsked);
}

TEST_F(AutomationDriverTest, HandsBackTheResult) {
    Attach();
    fake.answer = [](FakeCall& call) { return call.AnswerInteger(-123456); };
    EXPECT_EQ(-123456, driver.Call(kMethod).Integer());
}

TEST_F(AutomationDriverTest, FreesAResultNobodyReads) {
    Attach();
    fake.answer = [](FakeCall& call) {
        V_VT(call.result()) = VT_BSTR;
        V_BSTR(call.result()) = SysAllocString(L"unexpected");
        return S_OK;
    };
    const ComMemoryCounter memory;
    driver.Call(kMethod);
    EXPECT_EQ(0, memory.BlocksInUse());
}

TEST_F(AutomationDriverTest, ReleasesAnObjectThatNobodyAskedFor) {
    FakeDispatch surprise;
    Attach();
    fake.answer = [&](FakeCall& call) {
        surprise.AddRef();
        V_VT(call.result()) = VT_DISPATCH;
        V_DISPATCH(call.result()) = &surprise;
        return S_OK;
    };
    driver.Call(kMethod);
    EXPECT_EQ(0, surprise.references);
}

TEST_F(AutomationDriverTest, RaisesAFailingStatus) {
    Attach();
    fake.answer = [](FakeCall&) { return DISP_E_MEMBERNOTFOUND; };
    const AutomationError error = FailureOf();
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, error.Status());
    EXPECT_FALSE(error.Exception().has_value());
}

TEST_F(AutomationDriverTest, TakesAnInformativeStatusForSuccess) {
    Attach();
    fake.answer = [](FakeCall&) { return S_FALSE; };
    EXPECT_NO_THROW(driver.Call(kMethod));
}

TEST_F(AutomationDriverTest, FailureNamesTheMethodItsNumbersAndTheStatus) {
    Attach();
    fake.answer = [](FakeCall&) { return E_ACCESSDENIED; };
    const AutomationError error = FailureOf({NumberArgument(12), NumberArgument(3)});
    EXPECT_THAT(error.what(), HasSubstr("GetSomething(12, 3): status 80070005"));
}

TEST_F(AutomationDriverTest, FailureCountsTheRefusedArgumentFromOne) {
    Attach();
    fake.answer = [](FakeCall& call) { return call.RefuseArgument(1); };
    const AutomationError error = FailureOf({NumberArgument(12), NumberArgument(3)});
    EXPECT_EQ(DISP_E_TYPEMISMATCH, error.Status());
    EXPECT_THAT(error.what(), HasSubstr("(argument 1)"));
}

// As a host in another process answers: it always puts a number there.
TEST_F(AutomationDriverTest, FailureThatMeansNoArgumentNamesNone) {
    Attach();
    for (const HRESULT status : {E_ACCESSDENIED, E_INVALIDARG, DISP_E_MEMBERNOTFOUND}) {
        fake.answer = [status](FakeCall& call) {
            call.RefuseArgument(1);
            return status;
        };
        const AutomationError error = FailureOf({NumberArgument(12)});
        EXPECT_EQ(status, error.Status());
        EXPECT_THAT(error.what(), testing::Not(HasSubstr("argument")));
    }
}

TEST_F(AutomationDriverTest, RaisesTheHostsOwnExceptionWithItsStatus) {
    Attach();
    fake.answer = [](FakeCall& call) {
        call.exception().wCode = 0;
        call.exception().dwHelpContext = 9;
        call.exception().bstrHelpFile = SysAllocString(L"host.chm");
        return call.FailWithException(L"The host", L"No such node", E_INVALIDARG);
    };
    const AutomationError error = FailureOf({NumberArgument(5)});
    EXPECT_EQ(DISP_E_EXCEPTION, error.Status());
    ASSERT_TRUE(error.Exception().has_value());
    EXPECT_EQ("The host", error.Exception()->source);
    EXPECT_EQ("No such node", error.Exception()->description);
    EXPECT_EQ("host.chm", error.Exception()->helpFile);
    EXPECT_EQ(9u, error.Exception()->helpContext);
    EXPECT_EQ(E_INVALIDARG, error.Exception()->status);
    EXPECT_THAT(error.what(),
                HasSubstr("GetSomething(5): the host reports: No such node (The host)"));
}

TEST_F(AutomationDriverTest, AnExceptionWithoutTextShowsTheHostsErrorNumber) {
    Attach();
    fake.answer = [](FakeCall& call) {
        call.exception().wCode = 1004;
        return DISP_E_EXCEPTION;
    };
    const AutomationError error = FailureOf();
    EXPECT_EQ(1004, error.Exception()->code);
    EXPECT_THAT(error.what(), HasSubstr("the host reports: error 1004"));
}

TEST_F(AutomationDriverTest, AnExceptionWithoutTextAndNumberShowsTheHostsStatus) {
    Attach();
    fake.answer = [](FakeCall& call) {
        call.exception().scode = E_ACCESSDENIED;
        return DISP_E_EXCEPTION;
    };
    EXPECT_THAT(FailureOf().what(), HasSubstr("the host reports: status 80070005"));
}

TEST_F(AutomationDriverTest, AsksTheHostForTextsThatItFillsInLate) {
    Attach();
    fake.answer = [](FakeCall& call) {
        call.exception().pfnDeferredFillIn = [](EXCEPINFO* info) -> HRESULT {
            info->bstrDescription = SysAllocString(L"filled in late");
            return S_OK;
        };
        return DISP_E_EXCEPTION;
    };
    EXPECT_EQ("filled in late", FailureOf().Exception()->description);
}

TEST_F(AutomationDriverTest, FreesTheStringsOfAnException) {
    Attach();
    fake.answer = [](FakeCall& call) {
        call.exception().bstrHelpFile = SysAllocString(L"host.chm");
        return call.FailWithException(L"The host", L"No such node", E_INVALIDARG);
    };
    const ComMemoryCounter memory;
    FailureOf();
    EXPECT_EQ(0, memory.BlocksInUse());
}

TEST_F(AutomationDriverTest, FreesAResultThatCameWithAFailure) {
    Attach();
    fake.answer = [](FakeCall& call) {
        V_VT(call.result()) = VT_BSTR;
        V_BSTR(call.result()) = SysAllocString(L"half an answer");
        return E_FAIL;
    };
    const ComMemoryCounter memory;
    FailureOf();
    EXPECT_EQ(0, memory.BlocksInUse());
}

TEST_F(AutomationDriverTest, RefusesACallWhileDetached) {
    EXPECT_EQ(E_POINTER, FailureOf().Status());
}

TEST_F(AutomationDriverTest, ReadsAnObjectAsAPropertyWithoutArguments) {
    FakeDispatch object;
    Attach();
    fake.answer = [&](FakeCall& call) {
        object.AddRef();
        V_VT(call.result()) = VT_DISPATCH;
        V_DISPATCH(call.result()) = &object;
        return S_OK;
    };
    IDispatch* const read = driver.ReadObject({"geometry", 1});
    EXPECT_EQ(&object, read);
    EXPECT_EQ(1, object.references);
    EXPECT_EQ(DISPATCH_PROPERTYGET, fake.calls.at(0).kind);
    EXPECT_TRUE(fake.calls.at(0).resultAsked);
    EXPECT_THAT(fake.calls.at(0).types, IsEmpty());
    read->Release();
}

TEST_F(AutomationDriverTest, AsksAnUnknownObjectForItsAutomationInterface) {
    FakeDispatch object;
    Attach();
    fake.answer = [&](FakeCall& call) {
        object.AddRef();
        V_VT(call.result()) = VT_UNKNOWN;
        V_UNKNOWN(call.result()) = &object;
        return S_OK;
    };
    IDispatch* const read = driver.ReadObject({"geometry", 1});
    EXPECT_EQ(&object, read);
    EXPECT_EQ(1, object.references);
    read->Release();
}

TEST_F(AutomationDriverTest, ReadsAnAbsentObjectAsNull) {
    Attach();
    fake.answer = [](FakeCall& call) {
        V_VT(call.result()) = VT_DISPATCH;
        V_DISPATCH(call.result()) = nullptr;
        return S_OK;
    };
    EXPECT_EQ(nullptr, driver.ReadObject({"geometry", 1}));
}

TEST_F(AutomationDriverTest, RefusesAPropertyThatIsNoObject) {
    Attach();
    fake.answer = [](FakeCall& call) { return call.AnswerInteger(5); };
    EXPECT_THROW(driver.ReadObject({"geometry", 1}), AutomationError);
}

TEST(AutomationArgument, NumberIsA32BitIntegerByValue) {
    const VARIANT argument = NumberArgument(std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(VT_I4, V_VT(&argument));
    EXPECT_EQ(std::numeric_limits<LONG>::min(), V_I4(&argument));
}

TEST(AutomationArgument, FlagKeepsItsSixteenBitValue) {
    const VARIANT argument = FlagArgument(1);
    EXPECT_EQ(VT_BOOL, V_VT(&argument));
    EXPECT_EQ(1, V_BOOL(&argument));
}

TEST(AutomationArgument, OutputsPointAtTheCallersVariables) {
    LONG integer = 0;
    double real = 0.0;
    const VARIANT integerOutput = OutputArgument(integer);
    const VARIANT realOutput = OutputArgument(real);
    EXPECT_EQ(VT_BYREF | VT_I4, V_VT(&integerOutput));
    EXPECT_EQ(&integer, V_I4REF(&integerOutput));
    EXPECT_EQ(VT_BYREF | VT_R8, V_VT(&realOutput));
    EXPECT_EQ(&real, V_R8REF(&realOutput));
}

TEST(HostString, StartsAsAnEmptyStringAndNotAsNone) {
    HostString text;
    const VARIANT argument = text.ByReference();
    EXPECT_EQ(VT_BYREF | VT_BSTR, V_VT(&argument));
    ASSERT_NE(nullptr, *V_BSTRREF(&argument));
    EXPECT_EQ(0u, SysStringLen(*V_BSTRREF(&argument)));
    EXPECT_EQ("", text.NarrowText());
}

TEST(HostString, FreesWhateverTheHostLeavesInIt) {
    const ComMemoryCounter memory;
    {
        HostString text;
        const VARIANT argument = text.ByReference();
        SysReAllocString(V_BSTRREF(&argument), L"D:\\jobs\\frame.ext");
        EXPECT_EQ("D:\\jobs\\frame.ext", text.NarrowText());
    }
    EXPECT_EQ(0, memory.BlocksInUse());
}

TEST(HostString, IsEmptyWhenTheHostTakesTheStringAway) {
    HostString text;
    const VARIANT argument = text.ByReference();
    SysFreeString(*V_BSTRREF(&argument));
    *V_BSTRREF(&argument) = nullptr;
    EXPECT_EQ("", text.NarrowText());
}

TEST(HostArray, HasOneDimensionThatStartsAtZero) {
    HostArray array(VT_R8, 6);
    const VARIANT argument = array.ByReference();
    SAFEARRAY* const raw = *V_ARRAYREF(&argument);
    LONG first = -1;
    LONG last = -1;
    SafeArrayGetLBound(raw, 1, &first);
    SafeArrayGetUBound(raw, 1, &last);
    EXPECT_EQ(1u, SafeArrayGetDim(raw));
    EXPECT_EQ(0, first);
    EXPECT_EQ(5, last);
}

TEST(HostArray, IsMarkedAsCarryingItsElementType) {
    for (const VARTYPE type : {VT_I4, VT_R8, VT_BSTR}) {
        HostArray array(type, 6);
        const VARIANT argument = array.ByReference();
        EXPECT_NE(0, (*V_ARRAYREF(&argument))->fFeatures & FADF_HAVEVARTYPE) << type;
    }
}

TEST(HostArray, PassesItselfByReferenceUnderTheTypeThatItsFlagsTell) {
    const struct {
        VARTYPE elements;
        VARTYPE expected;
    } cases[] = {{VT_I4, 0x6003},      {VT_R8, 0x6005},       {VT_BSTR, 0x6008},
                 {VT_UNKNOWN, 0x600D}, {VT_DISPATCH, 0x6009}, {VT_VARIANT, 0x600C}};
    for (const auto& c : cases) {
        HostArray array(c.elements, 2);
        EXPECT_EQ(c.expected, V_VT(&static_cast<const VARIANT&>(array.ByReference())));
    }
}

// 2^31 - 1 numbers are 8.6 GB, of which an array counts the last 32 bits only.
TEST(HostArray, OfMoreThanItCanHoldIsRefused) {
    EXPECT_THROW(HostArray(VT_I4, 2147483647), std::bad_alloc);
    EXPECT_THROW(HostArray(VT_I4, 1073741824 + 5), std::bad_alloc);
    EXPECT_THROW(HostArray(VT_R8, static_cast<std::size_t>(-1)), std::bad_alloc);
    HostArray array(VT_I4, 1);
    EXPECT_THROW(array.Create(VT_I4, 2147483647), std::bad_alloc);
}

TEST(HostArray, GivesBackWhatWasCopiedIn) {
    HostArray array(VT_I4, 3);
    array.CopyIn(std::vector<std::int32_t>{7, -8, 9});
    std::vector<std::int32_t> values(3);
    array.CopyOut(values);
    EXPECT_THAT(values, ElementsAre(7, -8, 9));
}

TEST(HostArray, DestroysTheArrayThatTheHostPutInItsPlace) {
    const ComMemoryCounter memory;
    {
        HostArray array(VT_I4, 3);
        const VARIANT argument = array.ByReference();
        SafeArrayDestroy(*V_ARRAYREF(&argument));
        *V_ARRAYREF(&argument) = SafeArrayCreateVector(VT_I4, 0, 2);
    }
    EXPECT_EQ(0, memory.BlocksInUse());
}

TEST(HostArray, CreatingAnotherArrayDestroysTheFirst) {
    const ComMemoryCounter memory;
    HostArray array(VT_I4, 3);
    array.Create(VT_R8, 6);
    EXPECT_EQ(1, memory.BlocksInUse());
}

TEST(HostArray, ForgetsAnArrayOnlyWhenItsDestructionSucceeds) {
    const ComMemoryCounter memory;
    HostArray array(VT_I4, 3);
    const VARIANT argument = array.ByReference();
    SAFEARRAY* const raw = *V_ARRAYREF(&argument);
    SafeArrayLock(raw);
    EXPECT_EQ(DISP_E_ARRAYISLOCKED, array.Destroy());
    EXPECT_THROW(array.Create(VT_R8, 6), AutomationError);
    EXPECT_EQ(raw, *V_ARRAYREF(&argument));
    SafeArrayUnlock(raw);
    EXPECT_EQ(S_OK, array.Destroy());
    EXPECT_EQ(0, memory.BlocksInUse());
}

TEST(HostArray, ThatCannotBeCreatedIsOutOfMemory) {
    EXPECT_THROW(HostArray(VT_R8, std::numeric_limits<std::size_t>::max()), std::bad_alloc);
    EXPECT_THROW(HostArray(VT_EMPTY, 6), std::bad_alloc) << "Windows makes no such array";
}

TEST(HostArray, RefusesAnElementBeyondTheHostsArray) {
    HostArray array(VT_I4, 2);
    std::vector<std::int32_t> values(3);
    try {
        array.CopyOut(values);
        FAIL() << "the third element was fetched";
    } catch (const AutomationError& error) {
        EXPECT_EQ(DISP_E_BADINDEX, error.Status());
    }
}

TEST(HostArray, RefusesElementsThatWouldNotFitWhereTheyGo) {
    HostArray array(VT_I4, 6);
    std::vector<double> values(6);
    EXPECT_THROW(array.CopyOut(values), AutomationError);
}

TEST(HostArray, RefusesElementsThatWouldHaveToBeFreed) {
    HostArray array(VT_BSTR, 6);  // pointers, as wide as a double
    std::vector<double> values(6);
    EXPECT_THROW(array.CopyOut(values), AutomationError);
}

TEST(HostArray, FetchesNothingWhenNothingIsWanted) {
    HostArray array(VT_I4, 0);
    EXPECT_NO_THROW(array.CopyOut(std::span<std::int32_t>()));
}

TEST(HostResult, ReadsOnlyTheWidthOfItsValue) {
    HostResult result;
    VARIANT& value = *result.Receive();
    value.llVal = 0x7777777700000005;
    EXPECT_EQ(5, result.Integer());
    value.llVal = 0x7777777777770000;
    EXPECT_FALSE(result.Truth());
    EXPECT_EQ(0, result.Short());
    value.llVal = 0x7777777777770001;
    EXPECT_TRUE(result.Truth());
    value.llVal = 0x777777773FC00000;  // 0x3FC00000 is 1.5 in single precision
    EXPECT_EQ(1.5f, result.Single());
}
