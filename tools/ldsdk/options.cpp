#include "tools/ldsdk/options.h"

#include "tools/ldsdk/error.h"

#include <CLI/CLI.hpp>
#include <iostream>

#ifndef LDSDK_VERSION
#define LDSDK_VERSION "unversioned"
#endif

namespace ldsdk::tool {

namespace {

constexpr char kAbout[] =
    "Debug tool of the network processor SDK. Without --device it runs the module in its own\n"
    "process, chip 0 up on the chip model. Without a command it reads command lines: with a "
    "prompt\n"
    "on a terminal, as a script from anything else.";
constexpr char kFooter[] =
    "Commands:\n"
    "  micro ...   a command of the module, through its 512-byte command buffer; `micro` lists "
    "them\n"
    "  chip ...    a command of the chip model; `chip help` lists them\n"
    "Exit status: 0; 1 the tool, the device or a script line failed; 2 bad usage.";

Error misused(const std::string &text)
{
    return usage(text + "; try ldsdk --help");
}

void set_mode(Options &options, bool serve, bool has_script)
{
    if (serve) {
        if (!options.device.empty() || has_script || options.interactive || options.echo) {
            throw misused("serve: expected no option but --socket beside it");
        }
        if (!options.words.empty()) {
            throw misused("serve: \"" + options.words[0] + "\": expected one --socket PATH only");
        }
        options.mode = Mode::serve;
        return;
    }
    if (has_script && !options.words.empty()) {
        throw misused("\"" + options.words[0] + "\": expected no command beside --script");
    }
    if (!has_script && (options.echo || options.interactive)) {
        throw misused(std::string(options.echo ? "--echo" : "--interactive") +
                      ": expected --script beside it");
    }
    if (has_script) {
        options.mode = Mode::script;
    }
    else if (!options.words.empty()) {
        options.mode = Mode::one_shot;
    }
}

}  // namespace

std::optional<Options> read_options(int argc, char **argv)
{
    Options options;
    CLI::App app{kAbout, "ldsdk"};
    app.footer(kFooter);
    app.prefix_command();
    app.set_version_flag("-V,--version", "ldsdk " LDSDK_VERSION);
    app.add_option("-d,--device", options.device,
                   "a running module: /dev/ldsdk, or unix:PATH of `ldsdk serve`")
        ->type_name("PATH");
    const CLI::Option *script =
        app.add_option(
               "-s,--script", options.script,
               "run a file of command lines, up to the first that fails; - is standard input")
            ->type_name("FILE");
    app.add_flag("-i,--interactive", options.interactive, "go on with a prompt behind the script");
    app.add_flag("-e,--echo", options.echo,
                 "show each script line on standard error before it runs");
    app.add_option("-o,--option", options.family,
                   "an option of the chip family, for the chip in this process: acl")
        ->type_name("NAME")
        ->take_all()
        ->allow_extra_args(false);
    CLI::App *serve =
        app.add_subcommand("serve", "serve the module and the chip model at a socket");
    serve
        ->add_option("--socket", options.socket,
                     "where the socket is made, mode 0600, and a lock file beside it")
        ->required()
        ->type_name("PATH");
    try {
        app.parse(argc, argv);
    }
    catch (const CLI::Success &answer) {
        app.exit(answer, std::cout, std::cerr);
        return std::nullopt;
    }
    catch (const CLI::ParseError &error) {
        throw misused(error.what());
    }
    options.words = app.remaining(true);
    if (!options.words.empty() && options.words[0].starts_with('-')) {
        throw misused("\"" + options.words[0] + "\": unknown option");
    }
    if (script->count() != 0 && options.script.empty()) {
        throw misused("--script: expected a file, or - for standard input");
    }
    if (app.count("--device") != 0 && options.device.empty()) {
        throw misused("--device: expected /dev/ldsdk or unix:PATH");
    }
    if (!options.family.empty() && !options.device.empty()) {
        throw misused("--option: expected no --device beside it, as its chip is up already");
    }
    set_mode(options, serve->parsed(), script->count() != 0);
    return options;
}

}  // namespace ldsdk::tool
