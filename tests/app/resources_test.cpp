// The resource section of the built Quarnel.exe, read back.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "compute/status_texts.h"
#include "tests/app/template_reader.h"

namespace {

using testing::HasSubstr;

// Quarnel.exe beside the tests, in build/<preset>/bin, opened for its resources only.
class Executable {
public:
    Executable() : module_(LoadLibraryExW(Path().c_str(), nullptr, kFlags)) {}
    ~Executable() { FreeLibrary(module_); }
    Executable(const Executable&) = delete;
    Executable& operator=(const Executable&) = delete;

    static std::wstring Path() {
        wchar_t own[MAX_PATH];
        GetModuleFileNameW(nullptr, own, MAX_PATH);
        std::wstring folder(own);
        folder.resize(folder.rfind(L'\\'));
        return folder + L"\\..\\bin\\Quarnel.exe";
    }

    HMODULE Module() const { return module_; }

    std::vector<std::uint8_t> Resource(LPCWSTR type, int name) const {
        const HRSRC found = FindResourceExW(module_, type, MAKEINTRESOURCEW(name),
                                            MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US));
        if (found == nullptr) return {};
        const auto* const first =
            static_cast<const std::uint8_t*>(LockResource(LoadResource(module_, found)));
        return {first, first + SizeofResource(module_, found)};
    }

    // Every text of the string table, by identifier.
    std::map<int, std::wstring> Texts() const {
        std::map<int, std::wstring> texts;
        for (int block = 1; block <= 4096; ++block) {
            const std::vector<std::uint8_t> bytes = Resource(RT_STRING, block);
            std::size_t at = 0;
            for (int i = 0; i < 16 && !bytes.empty(); ++i) {
                const std::size_t length = bytes[at] + 256u * bytes[at + 1];
                std::wstring text(length, L'\0');
                std::memcpy(text.data(), &bytes[at + 2], 2 * length);
                if (length > 0) texts[16 * (block - 1) + i] = text;
                at += 2 + 2 * length;
            }
        }
        return texts;
    }

private:
    static constexpr DWORD kFlags = LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE;

    HMODULE module_;
};

class Resources : public testing::Test {
protected:
    Executable executable_;
};

const std::map<int, std::wstring> kTexts = {
    {101, L"&About Quarnel..."},
    {42133, L"Not enough memory to complete the operation."},
    {42134, L"The specified file/path  was not found."},
    {42135, L"DDE Error"},
    {42136, L"The operating system denied access to the specified file."},
    {42137, L"A sharing violation occurred."},
    {42138, L"The file name association is incomplete or invalid."},
    {42139, L"Unknown application error has occured."},
    {42154, L"Input not specified!"},
    {42155, L"Input does not exist"},
    {42156, L"Unable to establish connection with ORVEK.Pro!"},
    {42157, L"Failed to initialize AijCodeRoute2..."},
    {42158, L"Preparing for calculation..."},
    {42159, L"Setting load information..."},
    {42160, L"Setting node information..."},
    {42161, L"Setting member information..."},
    {42162, L"Setting floor information..."},
    {42163, L"Setting story information..."},
    {42164, L"Calculating relative displacements..."},
    {42165, L"Calculating story stiffness ratio..."},
    {42166, L"Calculating ceter of gravity..."},
    {42167, L"Calculating story shear..."},
    {42168, L"Calculating horizontal story stiffness..."},
    {42169, L"Calculating ceter of rigidity..."},
    {42170, L"Calculating eccentricity modulus..."},
    {42171, L"Saving output..."},
    {42172, L"Calculation Complete"},
    {42173, L"ORVEK analysis results are not available."},
    {42174, L"Please run analysis first."},
    {42175, L"Wrong file path..."},
    {42176, L"Exception was thrown..."},
    {42177, L"Finishes process..."},
    {42178, L"Closing error log file..."},
    {42179, L"No input file exist!"},
    {42180, L"No log file exist!"},
    {42182, L"Route 2 Input (*.csv)|*.csv|"},
    {42183, L"File already exists and content will be deleted. Do you like to proceed?"},
    {42184, L"No result file exist!"},
    {42185, L"- None Selected -"},
};

// Places and sizes in dialog units: x, y, width, height.
testing::Matcher<TemplateControl> IsAt(short x, short y, short width, short height) {
    return testing::AllOf(testing::Field("x", &TemplateControl::x, x),
                          testing::Field("y", &TemplateControl::y, y),
                          testing::Field("width", &TemplateControl::width, width),
                          testing::Field("height", &TemplateControl::height, height));
}

testing::Matcher<TemplateControl> Is(const std::wstring& windowClass, std::uint32_t id,
                                     const std::wstring& text) {
    return testing::AllOf(testing::Field("windowClass", &TemplateControl::windowClass, windowClass),
                          testing::Field("id", &TemplateControl::id, id),
                          testing::Field("text", &TemplateControl::text, text));
}

testing::Matcher<TemplateControl> HasStyle(std::uint32_t style) {
    return testing::AllOf(
        testing::Field("style", &TemplateControl::style, WS_CHILD | WS_VISIBLE | style),
        testing::Field("extendedStyle", &TemplateControl::extendedStyle, 0u));
}

constexpr auto kNoId = static_cast<std::uint32_t>(-1);

}  // namespace

TEST_F(Resources, StringTableHoldsExactlyTheToolsTexts) {
    EXPECT_EQ(kTexts, executable_.Texts());
}

TEST_F(Resources, StatusLinesOfTheRunAreThoseOfTheStringTable) {
    const std::map<int, std::wstring> texts = executable_.Texts();
    for (int id = 42154; id <= 42178; ++id) {
        const std::string line = TextOf(static_cast<StatusText>(id));
        EXPECT_EQ(texts.at(id), std::wstring(line.begin(), line.end())) << id;
    }
}

TEST_F(Resources, MainDialogIsATaskBarWindowWithTheMenu) {
    const DialogTemplate dialog = ReadDialogTemplate(executable_.Resource(RT_DIALOG, 102));
    EXPECT_EQ(L"Quarnel Design Tool", dialog.caption);
    EXPECT_EQ(
        std::uint32_t{WS_VISIBLE | WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT},
        dialog.style);
    EXPECT_EQ(std::uint32_t{WS_EX_APPWINDOW}, dialog.extendedStyle);
    EXPECT_EQ(L"#129", dialog.menu);
    EXPECT_EQ(L"", dialog.windowClass);
    EXPECT_EQ((std::pair<short, short>(241, 279)), std::pair(dialog.width, dialog.height));
}

TEST_F(Resources, BothDialogsUseTheEightPointFont) {
    for (const int id : {100, 102}) {
        const DialogTemplate dialog = ReadDialogTemplate(executable_.Resource(RT_DIALOG, id));
        EXPECT_EQ(L"MS Sans Serif", dialog.fontName) << id;
        EXPECT_EQ(8, dialog.fontPoints) << id;
    }
}

TEST_F(Resources, MainDialogHasItsControlsInTabOrder) {
    const DialogTemplate dialog = ReadDialogTemplate(executable_.Resource(RT_DIALOG, 102));
    EXPECT_THAT(
        dialog.controls,
        testing::ElementsAre(Is(L"button", 1, L"Compute"), Is(L"button", 2, L"Done"),
                             Is(L"static", kNoId, L"Current Input:"),
                             Is(L"static", 1001, L"- none selected -"), Is(L"listbox", 1002, L"")));
}

TEST_F(Resources, MainDialogHasItsControlsInTheirPlaces) {
    const DialogTemplate dialog = ReadDialogTemplate(executable_.Resource(RT_DIALOG, 102));
    EXPECT_THAT(dialog.controls, testing::ElementsAre(IsAt(186, 21, 50, 14), IsAt(186, 261, 50, 14),
                                                      IsAt(5, 5, 44, 8), IsAt(59, 5, 178, 8),
                                                      IsAt(3, 41, 233, 215)));
}

TEST_F(Resources, MainDialogHasItsControlsInTheirStyles) {
    const DialogTemplate dialog = ReadDialogTemplate(executable_.Resource(RT_DIALOG, 102));
    // The current input is a path: no mnemonics, left out in the middle. The list has no LBS_SORT.
    EXPECT_THAT(
        dialog.controls,
        testing::ElementsAre(HasStyle(BS_PUSHBUTTON | WS_TABSTOP),
                             HasStyle(BS_DEFPUSHBUTTON | WS_TABSTOP), HasStyle(SS_LEFT | WS_GROUP),
                             HasStyle(SS_LEFT | WS_GROUP | SS_NOPREFIX | SS_PATHELLIPSIS),
                             HasStyle(WS_BORDER | WS_VSCROLL | WS_TABSTOP | LBS_NOSEL | LBS_NOTIFY |
                                      LBS_NOINTEGRALHEIGHT)));
}

TEST_F(Resources, AboutBoxIsAModalFrame) {
    const DialogTemplate dialog = ReadDialogTemplate(executable_.Resource(RT_DIALOG, 100));
    EXPECT_EQ(L"About Quarnel", dialog.caption);
    EXPECT_EQ(std::uint32_t{WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT},
              dialog.style);
    EXPECT_EQ((std::pair<short, short>(235, 55)), std::pair(dialog.width, dialog.height));
}

TEST_F(Resources, AboutBoxShowsIconNameAndVersion) {
    const DialogTemplate dialog = ReadDialogTemplate(executable_.Resource(RT_DIALOG, 100));
    ASSERT_EQ(4u, dialog.controls.size());
    EXPECT_THAT(dialog.controls[0], Is(L"static", kNoId, L"#128"));
    EXPECT_EQ((std::pair<short, short>(11, 17)),
              std::pair(dialog.controls[0].x, dialog.controls[0].y));
    EXPECT_EQ(std::uint32_t{SS_ICON}, dialog.controls[0].style & SS_TYPEMASK);
    EXPECT_THAT(dialog.controls[1], Is(L"static", kNoId, L"Quarnel Version 1.0"));
    EXPECT_THAT(dialog.controls[1], IsAt(40, 10, 119, 8));
    EXPECT_THAT(dialog.controls[2], IsAt(40, 25, 119, 8));
    EXPECT_NE(L"", dialog.controls[2].text);
    EXPECT_THAT(dialog.controls[3], Is(L"button", 1, L"OK"));
    EXPECT_THAT(dialog.controls[3], IsAt(178, 7, 50, 14));
    EXPECT_EQ(std::uint32_t{BS_DEFPUSHBUTTON}, dialog.controls[3].style & BS_TYPEMASK);
}

TEST_F(Resources, MenuHasTheFileCommandsWithRulesBetweenTheGroups) {
    const HMENU menu = LoadMenuW(executable_.Module(), MAKEINTRESOURCEW(129));
    ASSERT_EQ(1, GetMenuItemCount(menu));
    wchar_t title[32];
    GetMenuStringW(menu, 0, title, 32, MF_BYPOSITION);
    EXPECT_STREQ(L"File", title);

    const HMENU file = GetSubMenu(menu, 0);
    std::vector<std::pair<UINT, std::wstring>> items;
    for (int i = 0; i < GetMenuItemCount(file); ++i) {
        wchar_t text[64] = L"";
        GetMenuStringW(file, static_cast<UINT>(i), text, 64, MF_BYPOSITION);
        items.emplace_back(GetMenuItemID(file, i), text);
    }
    DestroyMenu(menu);
    const std::vector<std::pair<UINT, std::wstring>> expected = {{32773, L"Load Route 2 Input"},
                                                                 {32771, L"Open Route 2 Input"},
                                                                 {0, L""},
                                                                 {32772, L"Create Route 2 Input"},
                                                                 {0, L""},
                                                                 {32774, L"View Error Log"},
                                                                 {32775, L"View Results"},
                                                                 {0, L""},
                                                                 {2, L"Exit"}};
    EXPECT_EQ(expected, items);
}

// The directory of an icon: six bytes with the count last, then fourteen bytes per image, the
// width in the first.
TEST_F(Resources, IconHasTwoSizes) {
    const std::vector<std::uint8_t> directory = executable_.Resource(RT_GROUP_ICON, 128);
    ASSERT_EQ(6u + 2 * 14u, directory.size());
    EXPECT_EQ(2, directory[4]);
    EXPECT_EQ(16, directory[6]);
    EXPECT_EQ(32, directory[6 + 14]);
}

TEST_F(Resources, ManifestAsksForTheInvokersLevel) {
    const std::vector<std::uint8_t> bytes = executable_.Resource(RT_MANIFEST, 1);
    const std::string manifest(bytes.begin(), bytes.end());
    EXPECT_THAT(manifest,
                HasSubstr("<requestedExecutionLevel level=\"asInvoker\" uiAccess=\"false\"/>"));
}

TEST_F(Resources, ManifestDeclaresDpiAwarenessAndUtf8) {
    const std::vector<std::uint8_t> bytes = executable_.Resource(RT_MANIFEST, 1);
    const std::string manifest(bytes.begin(), bytes.end());
    EXPECT_THAT(manifest, HasSubstr(">true</dpiAware>"));
    EXPECT_THAT(manifest, HasSubstr(">UTF-8</activeCodePage>"));
}

// LoadLibrary sees the header of the image, whose first byte follows the flags in the handle's
// low bits.
TEST_F(Resources, ExecutableIsRandomisedAndItsDataIsNotRun) {
    const auto base = reinterpret_cast<ULONG_PTR>(executable_.Module()) & ~ULONG_PTR{3};
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* const image = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
    const WORD wanted = IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_NX_COMPAT |
                        IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA;
    EXPECT_EQ(wanted, image->OptionalHeader.DllCharacteristics & wanted);
    EXPECT_EQ(IMAGE_SUBSYSTEM_WINDOWS_GUI, image->OptionalHeader.Subsystem);
}
