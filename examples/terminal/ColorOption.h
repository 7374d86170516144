#pragma once

#include "terminal/ColorChoice.h"

#include <CLI/CLI.hpp>

#include <string>

namespace ostrel {

/// Adds `--color` to the command line of a program. `choice` must outlive the parsing.
inline void addColorOption(CLI::App& app, ColorChoice& choice) {
    const auto choose = [&choice](const std::string& name) {
        choice = name == "always"  ? ColorChoice::Always
                 : name == "never" ? ColorChoice::Never
                                   : ColorChoice::Auto;
    };
    app.add_option_function<std::string>(
           "--color", choose,
           "When to colour text; auto: at a terminal, unless NO_COLOR,\n"
           "FORCE_COLOR or CLICOLOR_FORCE says otherwise")
        ->check(CLI::IsMember({"auto", "always", "never"}))
        ->default_str("auto");
}

} // namespace ostrel
