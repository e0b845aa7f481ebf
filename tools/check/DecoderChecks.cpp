// What a decoder says of itself, and how it refuses files that are none of its own.
#include "Checks.h"
#include "DecoderRun.h"
#include "Rules.h"
#include "contract/Keys.h"

namespace {

constexpr std::uint32_t mostFormats = 5000;

// A file of the checks; deleted at the end.
class TestFile {
public:
    TestFile(const Checked& checked, const wchar_t* name, const XString& extension, std::size_t size)
        : path(checked.folder + name + extension) {
        const XFileHandle file(CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        std::uint32_t random = 4711;
        std::vector<unsigned char> bytes(size);
        for (unsigned char& byte : bytes) {
            random = random * 1664525 + 1013904223;
            byte = static_cast<unsigned char>(random >> 24);
        }
        DWORD written = 0;
        WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(size), &written, nullptr);
    }
    ~TestFile() { DeleteFileW(path); }
    TestFile(const TestFile&) = delete;
    TestFile& operator=(const TestFile&) = delete;
    XString path;
};

XString FirstExtension(Checked& checked) {
    Instance instance(checked);
    PluginParams params{};
    return instance.Ask(ZtKey::decodes, params) != 0 ? XString(params.text1) : XString();
}

// Opened all the same, such a file must at least come to an end.
void CheckBadFile(Checked& checked, const XString& path, const XString& what) {
    Instance instance(checked);
    DecoderRun run(checked, instance);
    if (!run.Open(path, ztOpenAll)) {
        checked.report.Check(!instance.TextOf(ZtKey::lastError).IsEmpty(), what + L" is refused, with words",
                             what + L" is refused, and Get(\"Last Error\") does not say why");
    } else {
        checked.report.Note(what + L" is taken for audio: users get noise instead of an error");
        Sound sound;
        run.Decode(sound, 4096);
    }
    checked.report.Demand(DeleteFileW(path) != FALSE || instance.value == nullptr || !run.isRefused,
                          what + L" is still open after Open has refused it");
}

void CheckMissingFiles(Checked& checked, const XString& extension) {
    Instance a(checked), b(checked);
    DecoderRun runA(checked, a), runB(checked, b);
    if (!checked.report.Check(!runA.Open(checked.folder + L"missing A" + extension, ztOpenFormat),
                              L"a file that is missing is refused",
                              L"Open says yes to a file that does not exist"))
        return;
    PluginParams params{};
    if (a.Ask(ZtKey::lastError, params) == 0 || !params.text1) {
        checked.report.Broken(L"Get(\"Last Error\") has no words for a file that does not exist");
        return;
    }
    const XString words = TakeText(checked, L"Get(\"Last Error\")", params.text1);
    static_cast<void>(runB.Open(checked.folder + L"missing B, with a longer name" + extension, ztOpenFormat));
    static_cast<void>(b.TextOf(ZtKey::lastError));
    checked.report.Check(
        IsStill(params.text1, words), XString(L"failures have words: ") + words,
        L"Get(\"Last Error\") of one instance changed the text that another one had returned: "
        L"keep it in the instance");
}

// Calls without a file that is open.
void CheckWithoutFile(Checked& checked) {
    Instance instance(checked);
    std::int32_t sample[64] = {};
    const std::int32_t count = checked.report.In(
        L"DecodeBlock without a file", [&] { return checked.library.decode(instance.value, sample, 4); });
    const std::int32_t moved = checked.report.In(L"SetPosition without a file",
                                                 [&] { return checked.library.seek(instance.value, 0); });
    checked.report.In(L"DeleteATag without a file",
                      [&] { return checked.library.deleteTag(instance.value, L"title"); });
    checked.report.In(L"Close without a file", [&] { checked.library.close(instance.value); });
    checked.report.In(L"Close without a file", [&] { checked.library.close(instance.value); });
    checked.report.Check(count <= 0 && moved == 0, L"calls without a file do no harm",
                         L"DecodeBlock or SetPosition say yes without a file");
}

} // namespace

void CheckDecoderKeys(Checked& checked) {
    Instance instance(checked);
    if (!instance.value)
        return;
    XStringArray extensions;
    std::uint32_t index = 0;
    for (; index < mostFormats; ++index) {
        PluginParams params{};
        params.index = index;
        if (instance.Ask(ZtKey::decodes, params) == 0)
            break;
        const XString which = XString(L"Get(\"Decodes\") with the index ") + DecimalText(index);
        const wchar_t* const description = params.text2;
        const XString extension = TakeText(checked, which, params.text1);
        const XString fault = ExtensionFault(extension);
        checked.report.Demand(fault.IsEmpty(), which + L" returned an extension that " + fault);
        checked.report.Demand(!TakeText(checked, which, description).IsEmpty(),
                              which + L" has no text2: users would not see what the format is called");
        if (extensions.Contains(extension, true))
            checked.report.Note(which + L" names " + extension + L" once more");
        extensions.AddString(extension);
    }
    checked.report.Check(index > 0 && index < mostFormats,
                         XString(L"it decodes files of ") + DecimalText(index) + L" extensions",
                         index == 0
                             ? L"Get(\"Decodes\") with the index 0 is not answered: the decoder takes no file"
                             : L"Get(\"Decodes\") never answers 0: Tonemill would ask for ever");
    checked.report.Check(!instance.TextOf(ZtKey::decoderDescription).IsEmpty(),
                         L"Get(\"Decoder Description\") is answered",
                         L"Get(\"Decoder Description\") is not answered: the list of files shows it");
}

void CheckDecoderFailures(Checked& checked) {
    const XString extension = FirstExtension(checked);
    CheckWithoutFile(checked);
    CheckMissingFiles(checked, extension);
    const TestFile empty(checked, L"empty", extension, 0), garbage(checked, L"garbage", extension, 20000);
    CheckBadFile(checked, empty.path, L"an empty file");
    CheckBadFile(checked, garbage.path, L"a file of random bytes");
    Instance instance(checked);
    DecoderRun run(checked, instance);
    checked.report.Demand(!run.Open(checked.folder, ztOpenAll), L"Open says yes to a folder");
}
