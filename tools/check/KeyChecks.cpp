// What all kinds have in common: instances come and go, unknown keys are answered with 0.
#include "Checks.h"

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace {

void CheckInstances(Checked& checked) {
    for (int i = 0; i < 20; ++i)
        if (!Instance(checked).value)
            return;
    std::vector<std::unique_ptr<Instance>> several;
    for (int i = 0; i < 5; ++i)
        several.push_back(std::make_unique<Instance>(checked));
    bool areDistinct = true;
    for (std::size_t a = 0; a < several.size(); ++a)
        for (std::size_t b = 0; b < a; ++b)
            areDistinct = areDistinct && several[a]->value != several[b]->value;
    several.erase(several.begin() + 1); // not in the order in which they came
    several.clear();
    checked.report.Check(areDistinct, L"instances come and go, several at a time",
                         checked.library.Name(L"Create") +
                             L" gave the same instance twice: every user has one of its own");
}

void CheckUnknownKeys(Checked& checked) {
    Instance instance(checked);
    if (!instance.value)
        return;
    bool isKept = true;
    XString longKey;
    for (int i = 0; i < 300; ++i)
        longKey += L"key";
    for (const wchar_t* key : {L"no such key", L"", longKey.Text()}) {
        PluginParams params{};
        isKept = isKept && instance.Ask(key, params) == 0;
    }
    checked.report.Check(isKept, L"unknown keys are answered with 0",
                         checked.library.Name(L"Get") +
                             L" answered yes to a key that does not exist: what it "
                             L"does not know, it has to answer with 0");
    PluginParams params{};
    const std::int32_t taken = checked.report.In(checked.library.Name(L"Set"), [&] {
        return checked.library.set(instance.value, L"no such key", &params);
    });
    checked.report.Demand(taken == 0,
                          checked.library.Name(L"Set") + L" answered yes to a key that does not exist");
}

// Instances may live on different threads.
void CheckThreads(Checked& checked) {
    std::atomic<int> failures = 0;
    checked.report.In(L"Create, Get and Destroy on four threads at once", [&] {
        const auto work = [&] {
            for (int i = 0; i < 50; ++i) {
                PluginCreateBlock block{};
                PluginParams params{};
                const ZtInstance instance = checked.library.create(&block);
                if (!instance) {
                    ++failures;
                    continue;
                }
                checked.library.get(instance, L"Extension", &params);
                checked.library.destroy(instance);
            }
        };
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back(work);
        for (std::thread& thread : threads)
            thread.join();
    });
    checked.report.Check(failures == 0, L"instances live on different threads",
                         checked.library.Name(L"Create") + L" fails when four threads call it at once");
}

} // namespace

void CheckKeys(Checked& checked) {
    CheckInstances(checked);
    CheckUnknownKeys(checked);
    CheckThreads(checked);
}
