// The panels of the real libraries on a dialog: what they show, what they give back, and that keys and
// screen readers find their way.
#include "PanelHost.h"
#include "plugins/dsp/PanelIds.h"
#include "plugins/encoder/PanelIds.h"

#include <gtest/gtest.h>

namespace {

constexpr wchar_t wave[] = L"encoder\\Wave";
constexpr wchar_t aiff[] = L"encoder\\AIFF";
constexpr wchar_t wave64[] = L"encoder\\Wave64";
constexpr wchar_t test[] = L"encoder\\Test Conversion";
constexpr wchar_t report[] = L"DSPs\\Batch Report";
constexpr wchar_t playlist[] = L"DSPs\\Playlist Writer";
constexpr wchar_t processors[] = L"DSPs\\Multi-CPU Force";
constexpr wchar_t channels[] = L"DSPs\\Channels";
constexpr wchar_t trim[] = L"DSPs\\Trim Silence";
constexpr wchar_t fade[] = L"DSPs\\Fade";
constexpr wchar_t removal[] = L"DSPs\\Delete Source File";
#ifdef TM_HAS_CODECS
constexpr wchar_t resample[] = L"DSPs\\Resample";
constexpr wchar_t gains[] = L"DSPs\\ReplayGain";
constexpr wchar_t volume[] = L"DSPs\\Volume";
constexpr wchar_t aac[] = L"encoder\\m4a AAC";
constexpr wchar_t alac[] = L"encoder\\ALAC";
constexpr wchar_t flac[] = L"encoder\\FLAC";
constexpr wchar_t mp3[] = L"encoder\\mp3 (Lame)";
constexpr wchar_t opus[] = L"encoder\\Opus";
constexpr wchar_t vorbis[] = L"encoder\\Ogg Vorbis";
constexpr wchar_t wavpack[] = L"encoder\\WavPack";
constexpr const wchar_t* libraries[] = {wave,     aiff,       wave64,   test,    aac,      alac,    flac,
                                        mp3,      opus,       vorbis,   wavpack, resample, gains,   report,
                                        playlist, processors, channels, trim,    fade,     removal, volume};
#else
constexpr const wchar_t* libraries[] = {wave,       aiff,     wave64, test, report, playlist,
                                        processors, channels, trim,   fade, removal};
#endif

// Labels, boxes and buttons whose text is larger than they are. Two pixels of a line may be missing
// below: they are its leading.
void ExpectNothingCut(HWND panel) {
    for (HWND child = GetWindow(panel, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const XString kind = ClassOf(child), text = WindowText(child);
        RECT place{}, panelPlace{}, inside{};
        GetWindowRect(child, &place);
        GetWindowRect(panel, &panelPlace);
        EXPECT_TRUE((UnionRect(&inside, &place, &panelPlace) && EqualRect(&inside, &panelPlace)) ||
                    kind.EqualsNoCase(L"ComboBox"))
            << text.Text() << " lies outside";
        if (!kind.EqualsNoCase(L"Static") && !kind.EqualsNoCase(L"Button"))
            continue;
        const HDC dc = GetDC(child);
        const HGDIOBJ old =
            SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(child, WM_GETFONT, 0, 0)));
        RECT needed{0, 0, place.right - place.left, 0};
        const bool isBox = kind.EqualsNoCase(L"Button");
        if (isBox)
            needed.right -= 16; // the mark or the frame
        const LONG width = needed.right;
        DrawTextW(dc, text, -1, &needed, DT_CALCRECT | (isBox ? DT_SINGLELINE : DT_WORDBREAK));
        SelectObject(dc, old);
        ReleaseDC(child, dc);
        EXPECT_LE(needed.right, width) << text.Text();
        EXPECT_LE(needed.bottom, place.bottom - place.top + 2) << text.Text();
    }
}

struct PassRow {
    const wchar_t* library;
    const wchar_t* settings;
    const wchar_t* expected = nullptr; // null: the same
    bool isForeign = false;            // options that the encoder refuses, and names when it does
};

// Panels without settings are shown by the checker of plug-ins (tests/check/plugins.sh).
constexpr PassRow passRows[] = {
    {wave, L"-format=\"24\" -rate=\"48000\" -channels=\"2\""},
    {wave, L"-FORMAT=\"Float\" -rate=\"source\""},
    {wave, L"-rate=\"12345\" -channels=\"6\" -format=\"8\""},
    {wave, L"-rate 999 -channels=\"99\"", L"-rate=\"1000\" -channels=\"8\""},
    {wave, L"-format=\"64\" -rate=\"fast\" -channels=\"-1\"", L"-channels=\"1\""},
    {wave, L"-format=\"32\" -dither=\"on\"", nullptr, true},
    {wave, L"rubbish \" = \"\"", L""},
    {aiff, L"-format=\"24\""},
    {wave64, L"-channels=\"5\""},
    {test, L"-checksum=\"MD5\""},
    {test, L"-checksum=\"sha\"", L""},
    {report, L"-file=\"C:\\Musik \x00E4\x4E2D\\{qt} & report.txt\" -other"},
    {report, L"-file=\"two\r\nlines\tand more\""},
    {playlist, L"-absolute -file=\"..\\my list.m3u\""},
    {playlist, L"-file -absolute=\"0\""},
    {processors, L"-noally -CPU16=\"0\" -cpu2 -x"},
    {channels, L"-to=\"Mono\""},
    {channels, L"-to=\"quad\"", L""},
    {trim, L"-keep=\"20\" -at=\"end\" -x"},
    {trim, L"-threshold=\"200\" -minimum=\"x\" -keep=\"0\"", L"-threshold=\"144\" -keep=\"0\""},
    {fade, L"-in=\"0\" -curve=\"linear\""},
    {fade, L"-out=\"99999\"", L"-out=\"60000\""},
    {removal, L"-otherlength"},
#ifdef TM_HAS_CODECS
    {gains, L"-peak=\"True\" -album=\"batch\""},
    {gains, L"-album=\"off\" -peak=\"loud\"", L"-album=\"off\""},
    {resample, L"-rate=\"Source\" -bits=\"16\" -dither=\"shaped\""},
    {resample, L"-rate=\"12345\" -quality=\"high\" -only=\"down\" -bits=\"Float\""},
    {resample, L"-rate=\"1\" -bits=\"8\" -dither=\"none\"", L"-rate=\"1000\" -dither=\"none\""},
    {volume, L"-over=\"Limit\" -loudness=\"-23\" -limit=\"-1\""},
    {volume, L"-gain=\"-0.25\" -limit=\"-2.5\" -x"},
    {volume, L"-peak=\"-1,5\" -gain=\"4\"", L"-peak=\"-1.5\""},
    {volume, L"-gain=\"99\" -limit=\"7\" -over=\"x\"", L"-gain=\"60\" -limit=\"0\""},
    {volume, L"-loudness=\"loud\" -limit=\"OFF\"", L"-limit=\"OFF\""},
    {aac, L"-bitrate=\"100\" -channels=\"2\""},
    {aac, L"-bitrate=\"999\"", L"-bitrate=\"512\""},
    {alac, L"-format=\"24\""},
    {alac, L"-format=\"20\"", L""},
    {flac, L"-level=\"0\" -verify=\"0\""},
    {flac, L"-verify -level=\"8\""},
    {flac, L"-level=\"99\" -verify=\"yes\"", L"-level=\"8\" -verify"},
    {flac, L"-level=\"x\" -level=\"3\"", L""},
    {mp3, L"-vbr=\"0\" -mode=\"mono\""},
    {mp3, L"-mode=\"Stereo\" -cbr=\"320\""},
    {mp3, L"-cbr=\"100\""},
    {mp3, L"-abr=\"8\" -mode=\"joint\""},
    {mp3, L"-vbr=\"2\""},
    {mp3, L"-vbr=\"10\"", L"-vbr=\"9\""},
    {mp3, L"-abr=\"999\" -cbr=\"x\" -vbr=\"1\"", L"-abr=\"310\""},
    {mp3, L"-cbr -abr -mode=\"quad\"", L""},
    {mp3, L"-q=\"0\" -vbr=\"4\"", nullptr, true},
    {vorbis, L"-quality=\"-1\""},
    {vorbis, L"-abr=\"100\""},
    {vorbis, L"-quality=\"3\" -abr=\"9\"", L"-abr=\"16\""},
    {vorbis, L"-quality=\"5\""},
    {vorbis, L"-quality=\"x\"", L""},
    {wavpack, L"-mode=\"Fast\" -extra=\"6\" -verify"},
    {wavpack, L"-mode=\"normal\""},
    {wavpack, L"-mode=\"max\" -extra=\"7\"", L"-extra=\"6\""},
    {opus, L"-bitrate=\"100\" -mode=\"CBR\" -complexity=\"0\""},
    {opus, L"-bitrate=\"1\" -mode=\"abr\" -complexity=\"11\"", L"-bitrate=\"6\""},
#endif
};

TEST(Panel, GivesBackWhatItWasGiven) {
    for (const PassRow& row : passRows) {
        SCOPED_TRACE(testing::Message() << row.library << ": " << row.settings);
        const XString expected = row.expected ? row.expected : row.settings;
        PanelHost host;
        PanelDriver driver(row.library);
        for (const XString& settings : {XString(row.settings), expected}) {
            const HWND panel = driver.Show(host, settings);
            ASSERT_TRUE(IsWindowVisible(panel));
            ExpectNothingCut(panel);
            EXPECT_EQ(driver.Live(), expected);
            EXPECT_TRUE(IsWindow(panel));
            EXPECT_EQ(driver.Remove(host.window), expected);
            EXPECT_FALSE(IsWindow(panel));
        }
        EXPECT_EQ(driver.Accepts(expected), !row.isForeign);
    }
}

struct ChangeRow {
    const wchar_t* library;
    const wchar_t* settings;
    int control;
    const wchar_t* typed; // characters for an edit control, or null
    WPARAM key;           // 0: a click
    int times;
    const wchar_t* expected;
    const wchar_t* summary = nullptr;
};

constexpr ChangeRow changeRows[] = {
    {wave, L"", ID_PCM_FORMAT, nullptr, VK_DOWN, 3, L"-format=\"24\""},
    {wave, L"-x=\"y\" -format=\"8\"", ID_PCM_FORMAT, nullptr, VK_HOME, 1, L"-x=\"y\""},
    {wave, L"-format=\"16\" -rate=\"44100\"", ID_PCM_CHANNELS, nullptr, VK_END, 1,
     L"-format=\"16\" -rate=\"44100\" -channels=\"2\"", L"16 bit, 44100 Hz, stereo: 10.6 MB a minute"},
    {wave, L"-rate=\"12345\"", ID_PCM_RATE, nullptr, VK_UP, 1, L"-rate=\"11025\""},
    {report, L"-file=\"C:\\a\"", ID_FILE, L" \"D:\\b\" ", 0, 0, L"-file=\"D:\\b\""},
    {report, L"-file=\"C:\\a\"", ID_FILE, L" ", 0, 0, L"", L"Without a file no report is written."},
    {playlist, L"", ID_FILE, L"a.m3u8", 0, 0, L"-file=\"a.m3u8\""},
    {playlist, L"-file=\"a.m3u8\"", ID_FILE, L"playlist.m3u8", 0, 0, L""},
    {processors, L"-cpu1 -cpu3", ID_CPU_FREE, nullptr, 0, 1, L"-cpu1 -cpu3 -noally"},
    {processors, L"-cpu1", ID_CPU_FIRST, nullptr, 0, 1, L"",
     L"One file at a time is converted, as no processor is chosen."},
    {channels, L"", ID_CHANNELS, nullptr, VK_DOWN, 2, L"-to=\"swap\"",
     L"Left and right channels change places, those of surround sound, too."},
    {trim, L"", ID_TRIM_KEEP, L"50", 0, 0, L"-keep=\"50\"",
     L"What is not louder than -60 dB is cut off; 0.05 s of it stays. A file of nothing but silence is an "
     L"error."},
    {fade, L"-in=\"0\"", ID_FADE_OUT, L"2500", 0, 0, L"-in=\"0\" -out=\"2500\"", L"The last 2.5 s fade out."},
    {fade, L"-in=\"5\"", ID_FADE_IN, L"\b", 0, 0, L""}, // nothing typed: the usual
    {removal, L"", ID_DELETE_OTHER_LENGTH, nullptr, 0, 1, L"-otherlength"},
    {playlist, L"-file=\"a\"", ID_PLAYLIST_ABSOLUTE, nullptr, 0, 1, L"-file=\"a\" -absolute"},
#ifdef TM_HAS_CODECS
    {gains, L"", ID_GAIN_ALBUM, nullptr, VK_DOWN, 3, L"-album=\"off\"",
     L"Only track gain is written. Album gains of the sources are left out."},
    {gains, L"-album=\"folder\"", ID_GAIN_PEAK, nullptr, VK_DOWN, 1, L"-album=\"folder\" -peak=\"true\""},
    {resample, L"-rate=\"48000\" -only=\"down\"", ID_RESAMPLE_BITS, nullptr, VK_DOWN, 2,
     L"-rate=\"48000\" -only=\"down\" -bits=\"24\"",
     L"What is above 48000 Hz and 24 bit is brought down to it. All else stays as it is."},
    {resample, L"-bits=\"16\"", ID_RESAMPLE_RATE, nullptr, VK_DOWN, 1, L"-bits=\"16\" -rate=\"48000\""},
    {volume, L"", ID_VOLUME_VALUE, L"-14.5", 0, 0, L"-loudness=\"-14.5\"",
     L"Every file becomes as loud as -14.5 LUFS (EBU R128), or less, so that no true peak is above -1 dBTP."},
    {volume, L"-loudness=\"-16\" -limit=\"-3\"", ID_VOLUME_MODE, nullptr, VK_DOWN, 1, L"-peak=\"-1\"",
     L"The highest sample of every file comes to -1 dBFS; what goes above full scale is clipped."},
    {volume, L"-gain=\"-3\"", ID_VOLUME_HAS_LIMIT, nullptr, 0, 1, L"-gain=\"-3\" -limit=\"-1\"",
     L"Everything becomes 3 dB quieter, or less, so that no true peak is above -1 dBTP."},
    {volume, L"-limit=\"-2\"", ID_VOLUME_HAS_LIMIT, nullptr, 0, 1, L"-limit=\"off\""},
    {volume, L"-gain=\"6\"", ID_VOLUME_VALUE, L"x", 0, 0, L"-gain=\"0\"",
     L"Nothing is made louder or quieter."},
    {volume, L"-limit=\"-2\"", ID_VOLUME_OVER, nullptr, VK_DOWN, 1, L"-limit=\"-2\" -over=\"limit\"",
     L"Every file becomes as loud as -23 LUFS (EBU R128); where a true peak would come above -2 dBTP, it is "
     L"limited for that moment."},
    {aac, L"-bitrate=\"128\"", ID_AAC_CHANNELS, nullptr, VK_END, 1, L"-bitrate=\"128\" -channels=\"2\"",
     L"Constant bit rate: stereo, 128 kbit/s, 1.0 MB a minute"},
    {alac, L"-format=\"16\"", ID_ALAC_FORMAT, nullptr, VK_DOWN, 1, L"-format=\"24\"",
     L"Every file gets 24 bit: sources of up to 24 bit are kept bit by bit."},
    {flac, L"", ID_FLAC_LEVEL, nullptr, VK_LEFT, 2, L"-level=\"3\""},
    {flac, L"-level=\"8\"", ID_FLAC_VERIFY, nullptr, 0, 1, L"-level=\"8\" -verify"},
    {mp3, L"", ID_MP3_QUALITY, nullptr, VK_RIGHT, 1, L"-vbr=\"1\"",
     L"Variable bit rate, very high quality: about 225 kbit/s, stereo"},
    {mp3, L"-cbr=\"128\"", ID_MP3_VBR, nullptr, 0, 1, L""},
    {mp3, L"-vbr=\"0\"", ID_MP3_CBR, nullptr, 0, 1, L"-cbr=\"192\"",
     L"Constant bit rate: 192 kbit/s, stereo"},
    {mp3, L"-abr=\"100\"", ID_MP3_RATE, nullptr, VK_DOWN, 1, L"-abr=\"112\"",
     L"Average bit rate: about 112 kbit/s, stereo"},
    {mp3, L"", ID_MP3_MODE, nullptr, VK_END, 1, L"-mode=\"mono\"",
     L"Variable bit rate, very high quality: about 114 kbit/s, mono"},
    {vorbis, L"", ID_VORBIS_QUALITY, nullptr, VK_LEFT, 6, L"-quality=\"-1\"",
     L"Quality -1, lowest: about 48 kbit/s for stereo, 24 for mono"},
    {vorbis, L"", ID_VORBIS_ABR_KIND, nullptr, 0, 1, L"-abr=\"192\"",
     L"Average bit rate: about 192 kbit/s for stereo, 96 for mono"},
    {vorbis, L"-abr=\"500\"", ID_VORBIS_QUALITY_KIND, nullptr, 0, 1, L""},
    {wavpack, L"", ID_WAVPACK_MODE, nullptr, VK_UP, 1, L"-mode=\"fast\""},
    {wavpack, L"", ID_WAVPACK_EXTRA, nullptr, VK_RIGHT, 2, L"-extra=\"2\""},
    {wavpack, L"-mode=\"high\" -extra=\"1\"", ID_WAVPACK_VERIFY, nullptr, 0, 1,
     L"-mode=\"high\" -extra=\"1\" -verify",
     L"Keeps the sound bit by bit, floating point too; slower to play. A file that does not "
     L"decode to its source counts as failed."},
    {opus, L"", ID_OPUS_RATE, nullptr, VK_UP, 3, L"-bitrate=\"80\"",
     L"Stereo gets about 80 kbit/s, mono 40, 5.1 240. Good for music to go."},
    {opus, L"", ID_OPUS_MODE, nullptr, VK_END, 1, L"-mode=\"cbr\"",
     L"Stereo gets 128 kbit/s, mono 64, 5.1 384. Music is hard to tell from its source."},
    {opus, L"", ID_OPUS_EFFORT, nullptr, VK_LEFT, 1, L"-complexity=\"9\""},
#endif
};

TEST(Panel, TakesWhatTheUserChanges) {
    for (const ChangeRow& row : changeRows) {
        SCOPED_TRACE(testing::Message() << row.library << " to " << row.expected);
        PanelHost host;
        PanelDriver driver(row.library);
        const HWND panel = driver.Show(host, row.settings);
        const HWND control = GetDlgItem(panel, row.control);
        for (int i = 0; i < row.times; ++i)
            SendMessageW(control, row.key ? WM_KEYDOWN : BM_CLICK, row.key, 0);
        if (row.typed) {
            SendMessageW(control, EM_SETSEL, 0, -1);
            for (const wchar_t* at = row.typed; *at; ++at)
                SendMessageW(control, WM_CHAR, *at, 0);
        }
        ExpectNothingCut(panel);
        if (row.summary) {
            EXPECT_EQ(WindowText(GetDlgItem(panel, ID_SUMMARY)), XString(row.summary));
        }
        EXPECT_EQ(driver.Live(), XString(row.expected));
        EXPECT_EQ(driver.Remove(host.window), XString(row.expected));
    }
}

// Answers the system's dialog that stands before the form, as soon as it is there.
void CALLBACK AnswerSaveDialog(HWND host, UINT, UINT_PTR timer, DWORD) noexcept {
    constexpr int nameBox = 0x47C, nameEdit = 0x480; // cmb13 or edt1, as the system has it
    HWND dialog = nullptr;
    do
        dialog = FindWindowExW(nullptr, dialog, L"#32770", nullptr);
    while (dialog && GetWindow(dialog, GW_OWNER) != host);
    if (!dialog || !IsWindowVisible(dialog))
        return;
    KillTimer(host, timer);
    SetDlgItemTextW(dialog, GetDlgItem(dialog, nameBox) ? nameBox : nameEdit, L"C:\\chosen");
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

TEST(Panel, BrowseAsksForTheFile) {
    struct BrowseRow {
        const wchar_t *library, *expected;
    };
    for (const BrowseRow& row : {BrowseRow{report, L"-file=\"C:\\chosen.txt\""},
                                 BrowseRow{playlist, L"-file=\"C:\\chosen.m3u8\""}}) {
        PanelHost host;
        PanelDriver driver(row.library);
        const HWND panel = driver.Show(host, L"");
        SetTimer(host.window, 1, 20, AnswerSaveDialog);
        SendMessageW(GetDlgItem(panel, ID_BROWSE), BM_CLICK, 0, 0);
        KillTimer(host.window, 1);
        EXPECT_EQ(driver.Remove(host.window), XString(row.expected));
    }
}

TEST(Panel, IsReachedByKeysWhereItStands) {
    for (const wchar_t* library : libraries) {
        SCOPED_TRACE(library);
        PanelHost host;
        PanelDriver driver(library);
        SetFocus(host.above);
        const HWND panel = driver.Show(host, L"");
        EXPECT_EQ(GetFocus(), host.above);
        const std::vector<HWND> stops = TabStops(host.window);
        ASSERT_GE(stops.size(), 3u);
        EXPECT_EQ(stops.front(), host.above);
        EXPECT_EQ(stops.back(), host.below);
        XString accessKeys;
        for (HWND child = GetWindow(panel, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            const XString text = WindowText(child).Lower();
            if (const int mark = text.FindChar(L'&'); mark > 0 && IsWindowVisible(child)) {
                EXPECT_EQ(accessKeys.FindChar(text.CharAt(mark + 1)), 0) << text.Text();
                accessKeys.InsertChar(text.CharAt(mark + 1));
            }
        }
        for (std::size_t i = 1; i + 1 < stops.size(); ++i) {
            host.PressKey(VK_TAB);
            EXPECT_EQ(GetFocus(), stops[i]);
            EXPECT_TRUE(IsChild(panel, stops[i]));
            // A screen reader takes the name from the control or from the label before it.
            HWND label = stops[i];
            while (label && WindowText(label).FindChar(L'&') == 0)
                label = GetWindow(label, GW_HWNDPREV);
            ASSERT_NE(label, nullptr);
            if (label != stops[i]) {
                EXPECT_EQ(ClassOf(label).Lower(), XString(L"static"));
                EXPECT_EQ(GetNextDlgTabItem(panel, label, FALSE), stops[i]);
            }
        }
    }
}

TEST(Panel, SpeaksTheFontOfItsForm) {
    for (const wchar_t* library : libraries)
        for (const int points : {8, 11}) {
            PanelHost host(points, L"Tahoma");
            PanelDriver driver(library);
            const HWND panel = driver.Show(host, L"");
            RECT place{};
            GetWindowRect(panel, &place);
            MapWindowPoints(nullptr, host.window, reinterpret_cast<POINT*>(&place), 2);
            const RECT expected = host.InPixels(21, 33, 300, 120);
            EXPECT_EQ(place.left, expected.left);
            EXPECT_EQ(place.top, expected.top);
            EXPECT_EQ(place.right, expected.right);
            EXPECT_LE(place.bottom, expected.bottom);
            ExpectNothingCut(panel);
        }
}

TEST(Panel, SurvivesTheEndOfItsForm) {
    for (const wchar_t* library : libraries) {
        PanelDriver driver(library), other(library);
        HWND panel = nullptr;
        {
            PanelHost host, otherHost;
            panel = driver.Show(host, L"-x=\"1\"");
            other.Show(otherHost, L"-x=\"2\"");
            EXPECT_EQ(driver.Live(), XString(L"-x=\"1\""));
        }
        EXPECT_FALSE(IsWindow(panel));
        EXPECT_EQ(driver.Remove(nullptr), XString(L"-x=\"1\""));
        EXPECT_EQ(other.Live(), XString(L"-x=\"2\""));
        PanelHost host;
        const HWND first = driver.Show(host, L"-x=\"3\"");
        panel = driver.Show(host, L"-x=\"4\""); // in place of the first
        EXPECT_FALSE(first != panel && IsWindow(first));
        EXPECT_EQ(driver.Live(), XString(L"-x=\"4\""));
        driver.Destroy();
        EXPECT_FALSE(IsWindow(panel));
    }
}

} // namespace
