// The encoder list of the set-up form: its rows, its commands, profiles.
#include "SetUpFixture.h"
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "host/PluginFolders.h"

#include <cstring>

namespace {

constexpr wchar_t taken[] = L"A profile already exists with this name.";
constexpr wchar_t question[] = L"The encoder 'Gamma' has to be downloaded and installed before it can be "
                               L"used.\r\n\r\nDownload encoder from Internet now?";
constexpr wchar_t newProfile[] = L"[Create New Profile]";
constexpr wchar_t deleteProfile[] = L"[Delete Selected Profile]";
constexpr wchar_t encoders[] = L"Alpha|Beta|Neither|NoFolder|NoSame|";

class EncoderList : public SetUpForm {
protected:
    EncoderList() {
        RegWriteString(L"Alpha", Setting::lastCodec);
        RegWriteDword(1, Setting::allowProfiles);
    }
    ~EncoderList() override {
        DeleteOneFile(root + smartInstallFileName);
        DeleteOneFile(root + L"encoder\\Broken.dll");
    }
    void Place(const wchar_t* name, const char* text) const {
        XFile file(root + name);
        ASSERT_TRUE(file.Open(GENERIC_WRITE, CREATE_ALWAYS));
        ASSERT_TRUE(file.Write(text, static_cast<DWORD>(std::strlen(text))));
    }
    static XString RowTexts() {
        XString all;
        wchar_t text[300] = L"";
        const HWND list = At(ID_ENCODER_LIST);
        for (WPARAM i = 0; SendMessageW(list, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text)) >= 0; ++i)
            all += XString(text) + L"|";
        return all;
    }
    static bool HasKey(const wchar_t* item) {
        XStringArray keys;
        RegEnumSubkeys(nullptr, SettingsPath(Setting::keyCodecs), keys);
        return keys.Contains(item, false);
    }
    static bool IsOpen(const wchar_t* item) {
        return Chosen(ID_ENCODER_LIST) == item && At(panelEdit) && IsWindowEnabled(Form());
    }
    static Step Opened(const wchar_t* item) {
        return [item] { return IsOpen(item); };
    }
    static HWND Profile() { return FindForm(ID_PROFILE_NAME); }
    static Step MakeProfile(const wchar_t* name) {
        return [name] {
            const HWND form = Profile();
            return form && IsWindowVisible(form) && IsWindowEnabled(form) &&
                   SetWindowTextW(GetDlgItem(form, ID_PROFILE_NAME), name) &&
                   PostMessageW(GetDlgItem(form, IDOK), BM_CLICK, 0, 0);
        };
    }
};

TEST_F(EncoderList, ShowsAllKindsInTheirOrder) {
    Place(smartInstallFileName, ".mp3\r\nGamma\r\nhttp://a\r\n.x\r\nALPHA\r\nhttp://b\r\n"
                                ".y\r\nDisc (read only)\r\nhttp://c\r\n.z\r\nHalf\r\n");
    Store(L"My \"own\" set \"Beta\"", L"", 0, L"", L"", L"");
    Store(L"Lost \"Nowhere\"", L"", 0, L"", L"", L"");
    Store(L"Alpha", L"", 0, L"", L"", L"");
    struct {
        DWORD allow;
        const wchar_t* last;
        const wchar_t* chosen;
    } const rows[] = {{1, L"Beta", L"Beta"},
                      {0, L"Beta", L"Beta"},
                      {1, L"beta", L"Alpha"}, // no such item, no Wave: the first row
                      {1, L"Gamma", L"Alpha"},
                      {1, newProfile, L"Alpha"},
                      {0, L"My \"own\" set \"Beta\"", L"My \"own\" set \"Beta\""}};
    for (const auto& row : rows) {
        RegWriteDword(row.allow, Setting::allowProfiles);
        RegWriteString(row.last, Setting::lastCodec);
        Run({[&] {
                XString expected = XString(encoders) + L"Gamma|";
                if (row.allow)
                    expected += XString(newProfile) + L"|" + deleteProfile + L"|";
                const XString texts = RowTexts();
                EXPECT_TRUE(texts.StartsWith(expected)) << testing::PrintToString(texts);
                for (const wchar_t* profile : {L"|My \"own\" set \"Beta\"|", L"|Lost \"Nowhere\"|"})
                    EXPECT_GT(texts.Find(profile), 0) << testing::PrintToString(texts);
                EXPECT_EQ(Chosen(ID_ENCODER_LIST), XString(row.chosen));
            }},
            IDCANCEL);
        EXPECT_EQ(RegReadString(Setting::lastCodec), XString(row.chosen));
    }
}

TEST_F(EncoderList, AnEncoderThatIsNotThereIsOnlyOffered) {
    Place(smartInstallFileName, ".mp3\r\nGamma\r\nhttp://gamma.example/\r\n");
    Run({Choose(L"Gamma"), AnswerBox(question, IDNO), Opened(L"Alpha"),
         [this] { EXPECT_TRUE(opened.IsEmpty()); }, Choose(L"Gamma"), AnswerBox(question, IDYES),
         Until([this] { return opened.Count() == 1; }), Opened(L"Alpha")},
        IDOK);
    EXPECT_EQ(opened[0], XString(L"http://gamma.example/"));
    EXPECT_FALSE(HasKey(L"Gamma"));
    EXPECT_EQ(RegReadString(Setting::lastCodec), XString(L"Alpha"));
}

TEST_F(EncoderList, ProfilesAreMadeRefusedAndDeleted) {
    constexpr wchar_t fast[] = L" fast \"Alpha\"";
    Run({Type(panelEdit, L"of Alpha"),
         Choose(newProfile),
         [] {
             const HWND form = Profile();
             if (!form || !IsWindowVisible(form))
                 return false;
             EXPECT_EQ(TextOf(form, ID_PROFILE_NAME), XString(L"<type profile name>"));
             EXPECT_EQ(TextOf(form, ID_PROFILE_ENCODER), XString(L"'Alpha'"));
             EXPECT_FALSE(IsWindowEnabled(GetDlgItem(form, IDOK)));
             for (const wchar_t* name : {L"a", L"", L"<TYPE profile name>", L"<type profile name>"}) {
                 SetWindowTextW(GetDlgItem(form, ID_PROFILE_NAME), name);
                 EXPECT_EQ(IsWindowEnabled(GetDlgItem(form, IDOK)) != 0, name[0] == L'a' || name[1] == L'T');
             }
             return true;
         },
         [] { PostMessageW(GetDlgItem(Profile(), IDCANCEL), BM_CLICK, 0, 0); },
         Opened(L"Alpha"),
         Choose(newProfile),
         MakeProfile(L" fast"),
         Opened(fast),
         [=] {
             EXPECT_EQ(TextOf(Form(), panelEdit), XString()); // no copy of the encoder's settings
             EXPECT_EQ(ReadRecipe(L"Alpha").encoderSettings, XString(L"of Alpha"));
         },
         Type(panelEdit, L"of fast"),
         Choose(newProfile),
         MakeProfile(L" FAST"),
         AnswerBox(taken, IDOK),
         MakeProfile(L"slow"),
         Opened(L"slow \"Alpha\""),
         [=] { EXPECT_EQ(ReadRecipe(fast).encoderSettings, XString(L"of fast")); },
         Choose(L"Beta"),
         Opened(L"Beta"),
         Choose(newProfile),
         MakeProfile(L"slow"), // the same name on another encoder
         Opened(L"slow \"Beta\""),
         Choose(deleteProfile),
         Opened(L"Alpha"),
         [] { EXPECT_FALSE(HasKey(L"slow \"Beta\"")); },
         Choose(deleteProfile), // an encoder stays
         Opened(L"Alpha"),
         [] {
             EXPECT_EQ(TextOf(Form(), panelEdit), XString(L"of Alpha"));
             const HWND next = FindWindowExW(Form(), At(panelEdit), L"Edit", nullptr);
             EXPECT_EQ(GetDlgCtrlID(next), ID_NAMING); // the panel of the profile is gone
             EXPECT_EQ(RowTexts(), XString(encoders) + newProfile + L"|" + deleteProfile +
                                       L"| fast \"Alpha\"|slow \"Alpha\"|");
         }},
        IDOK);
    EXPECT_TRUE(HasKey(L"Alpha"));
    EXPECT_FALSE(HasKey(newProfile));
    EXPECT_FALSE(HasKey(deleteProfile));
}

TEST_F(EncoderList, KeysAndTheWheelPassOverCommands) {
    Place(smartInstallFileName, ".mp3\r\nGamma\r\nhttp://gamma.example/\r\n");
    Store(L"p \"Beta\"", L"", 2, L"E:\\", L"", L""); // with a balloon on the way
    RegWriteString(L"NoSame", Setting::lastCodec);
    const auto send = [](UINT message, WPARAM wParam) -> Step {
        return [=] { return PostMessageW(At(ID_ENCODER_LIST), message, wParam, 0) != 0; };
    };
    Run({send(WM_KEYDOWN, VK_DOWN), Opened(L"p \"Beta\""), send(WM_KEYDOWN, VK_UP), Opened(L"NoSame"),
         send(WM_KEYDOWN, VK_END), Opened(L"p \"Beta\""), send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA)),
         Opened(L"NoSame")},
        IDCANCEL);
    EXPECT_TRUE(HasKey(L"p \"Beta\""));
}

TEST_F(EncoderList, ABrokenEncoderHasARowAndNoPanel) {
    Place(L"encoder\\Broken.dll", "no library");
    Store(L"Broken", L"kept", 1, L"E:\\", L"x", L"");
    const bool convert = Run({Choose(L"Broken"), Until([] { return Chosen(ID_FOLDER_LIST) == L"E:\\"; }),
                              [] { EXPECT_EQ(At(panelEdit), nullptr); }, Type(ID_NAMING, L"changed")},
                             IDOK);
    EXPECT_TRUE(convert);
    EXPECT_EQ(ReadRecipe(L"Broken").naming, XString(L"x"));
    EXPECT_EQ(RegReadString(Setting::lastCodec), XString(L"Broken"));
}

TEST_F(EncoderList, MayBeEmpty) {
    SetPluginRoot(root + L"nothing here\\");
    RegWriteDword(0, Setting::allowProfiles);
    Run({[] { EXPECT_EQ(RowTexts(), XString()); }}, IDOK);
}

} // namespace
