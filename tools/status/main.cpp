// Prints docs/status.md: what of the interface has landed, read from the very lists that the code
// is built from.
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

struct Item {
    std::string name;
    std::string detail;
    bool landed;
};

bool landed(const std::string &state)
{
    return state == "LANDED";
}

std::vector<Item> services()
{
    std::vector<Item> items;
#define NP_SERVICE(slot, door, wrapper, implementation, arity, state) \
    items.push_back({#implementation, std::to_string(slot), landed(#state)});
#define NP_SERVICE_BARE(slot, implementation, state) \
    items.push_back({#implementation, std::to_string(slot), landed(#state)});
#include "sdk/frame/base/service_list.h"
    return items;
}

std::vector<Item> bringup()
{
    std::vector<Item> items;
#define NP_BRINGUP(group, call, message, state) items.push_back({#call, #group, landed(#state)});
#include "sdk/frame/bringup_list.h"
    return items;
}

std::vector<Item> teardown()
{
    std::vector<Item> items;
#define NP_TEARDOWN(call, message, state) items.push_back({#call, "", landed(#state)});
#include "sdk/frame/bringup_list.h"
    return items;
}

std::vector<Item> pending_handlers()
{
    std::vector<Item> items;
#define NP_PENDING_HANDLER(name) items.push_back({#name, "", false});
#include "sdk/module/pending_handlers.h"
    return items;
}

size_t count_landed(const std::vector<Item> &items)
{
    size_t count = 0;
    for (const Item &item : items) {
        count += item.landed ? 1 : 0;
    }
    return count;
}

void print_section(const char *title, const char *intro, const std::vector<Item> &items)
{
    std::printf("\n## %s\n\n%s\n\n%zu of %zu are done.\n\n", title, intro, count_landed(items),
                items.size());
    // A list for each, so that what lands moves one line.
    for (const bool done : {true, false}) {
        std::printf("%s:\n\n", done ? "Done" : "\nNot there yet");
        for (const Item &item : items) {
            if (item.landed == done) {
                std::printf("- `%s`%s\n", item.name.c_str(),
                            item.detail.empty() ? "" : (" (" + item.detail + ")").c_str());
            }
        }
    }
}

}  // namespace

int main()
{
    std::printf(
        "# What is there\n\nGenerated from the lists in the code; `make status` writes it.\n");
    print_section(
        "Service slots",
        "Implementations by slot number. While one is not there, its slot is empty and the "
        "exported function answers 0x9a000003.",
        services());
    print_section("Bring-up",
                  "Steps by group, in their order. A step that is not there is skipped.",
                  bringup());
    print_section("Tear-down", "Steps in their order. A step that is not there is skipped.",
                  teardown());
    const std::vector<Item> handlers = pending_handlers();
    std::printf(
        "\n## Commands\n\nThese handlers answer \"Invalid command!\" until they land; "
        "there are %zu.\n\n",
        handlers.size());
    for (const Item &item : handlers) {
        std::printf("- `%s`\n", item.name.c_str());
    }
    return 0;
}
