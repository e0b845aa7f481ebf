// What the help pages show is what the program does: each naming example is evaluated, each element and
// function has its line, each link and picture leads somewhere.
#include "foundation/XTagList.h"
#include "foundation/XUtf8.h"
#include "naming/NamingEvaluator.h"
#include "naming/NamingHelp.h"
#include "naming/OutputPath.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr const char* pages[] = {"zTM.htm",     "files.htm",      "naming.htm",  "encoders.htm",
                                 "effects.htm", "converting.htm", "windows.htm", "troubleshooting.htm"};

std::string Load(const std::string& name) {
    std::string text;
    if (std::FILE* file = std::fopen((TM_HELP + name).c_str(), "rb")) {
        char block[4096];
        for (std::size_t size; (size = std::fread(block, 1, sizeof(block), file)) != 0;)
            text.append(block, size);
        std::fclose(file);
    }
    return text;
}

// What stands between each `open` and the next `close`.
std::vector<std::string> Between(const std::string& text, const std::string& open, const std::string& close) {
    std::vector<std::string> found;
    for (std::size_t at = 0; (at = text.find(open, at)) != std::string::npos;) {
        at += open.size();
        const std::size_t end = text.find(close, at);
        if (end == std::string::npos)
            break;
        found.push_back(text.substr(at, end - at));
        at = end + close.size();
    }
    return found;
}

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
}

XString Plain(std::string html) {
    ReplaceAll(html, "<br>", "\r");
    ReplaceAll(html, "&lt;", "<");
    ReplaceAll(html, "&gt;", ">");
    ReplaceAll(html, "&quot;", "\"");
    ReplaceAll(html, "&amp;", "&");
    std::vector<wchar_t> wide(html.size() + 1);
    Utf8ToWide(html.c_str(), wide.data(), static_cast<int>(wide.size()));
    return XString(wide.data());
}

struct Example {
    XString naming, result;
};
std::vector<Example> Examples(const std::string& page, const char* tableClass) {
    std::vector<Example> examples;
    const std::string open = std::string("<table class=\"") + tableClass + "\">";
    for (const std::string& table : Between(page, open, "</table>"))
        for (const std::string& row : Between(table, "<tr><td>", "</tr>")) {
            const std::vector<std::string> cells = Between(row, "<code>", "</code>");
            EXPECT_EQ(cells.size(), 2U) << row;
            if (cells.size() == 2)
                examples.push_back({Plain(cells[0]), Plain(cells[1])});
        }
    return examples;
}

TEST(Help, ExamplesOfTheDialogAreWhatItShows) {
    const std::vector<Example> examples = Examples(Load("naming.htm"), "dialog");
    EXPECT_GE(examples.size(), 3U);
    for (const Example& example : examples)
        EXPECT_EQ(NamingExample(example.naming), example.result) << example.naming.Text();
}

TEST(Help, ExamplesAreWhatTheSampleFileGets) {
    const std::string page = Load("naming.htm");
    XTagList sample;
    for (const std::string& table : Between(page, "<table class=\"sample\">", "</table>"))
        for (const std::string& row : Between(table, "<tr>", "</tr>"))
            sample.Add(Plain(Between(row, "<th>", "</th>").at(0)),
                       Plain(Between(row, "<td>", "</td>").at(0)));
    const std::vector<Example> examples = Examples(page, "example");
    EXPECT_GE(examples.size(), 30U);
    for (const Example& example : examples) {
        XString result = EvaluateNaming(example.naming, sample, nullptr);
        CleanPath(result, false, false);
        EXPECT_EQ(result, example.result) << example.naming.Text();
    }
}

TEST(Help, EveryElementAndFunctionHasItsLine) {
    const std::string page = Load("naming.htm");
    std::vector<XString> forms;
    for (const std::string& code : Between(page, "<tr><td><code>", "</code>"))
        forms.push_back(Plain(code));
    for (std::size_t i = 0; i < NamingRowCount(); ++i) {
        const clNamingRow& row = NamingRowAt(i);
        bool isThere = !row.form;
        for (const XString& form : forms)
            isThere = isThere || form == row.form;
        EXPECT_TRUE(isThere) << row.form;
    }
}

TEST(Help, EveryLinkLeadsSomewhere) {
    for (const char* name : pages) {
        const std::string page = Load(name);
        EXPECT_FALSE(page.empty()) << name;
        for (const std::string& link : Between(page, " href=\"", "\"")) {
            if (link.find("://") != std::string::npos)
                continue;
            const std::size_t mark = link.find('#');
            const std::string file = link.substr(0, mark);
            const std::string target = file.empty() ? page : Load(file);
            EXPECT_FALSE(target.empty()) << name << ": " << link;
            if (mark != std::string::npos) {
                EXPECT_NE(target.find(" id=\"" + link.substr(mark + 1) + '"'), std::string::npos)
                    << name << ": " << link;
            }
        }
        for (const std::string& picture : Between(page, "<img src=\"", "\""))
            EXPECT_FALSE(Load(picture).empty()) << name << ": " << picture;
    }
}

} // namespace
