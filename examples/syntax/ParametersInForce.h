#pragma once

#include "syntax/ParserState.h"

#include <cstdint>
#include <vector>

namespace ostrel {

/// While it lives, the parameter names of an anonymous function resolve to its parameters.
class ParametersInForce {
public:
    ParametersInForce(ParserState& of, Field inputs, ScopeId scope) : state(of) {
        for (std::uint32_t i = 0; i < inputs.count; ++i) {
            const NodeId held = state.builder.child(state.builder.element(inputs.begin + i), 0);
            if (state.builder.at(held).kind == zt::orvex::NodeKind::Identifier) {
                shadow(state.builder.identifierAt(held).name, scope);
            }
        }
    }
    ~ParametersInForce() {
        for (auto entry = shadowed.rbegin(); entry != shadowed.rend(); ++entry) {
            if (entry->scope == 0) {
                state.parameters.erase(entry->name);
            } else {
                state.parameters[entry->name] = entry->scope;
            }
        }
    }
    ParametersInForce(const ParametersInForce&) = delete;
    ParametersInForce& operator=(const ParametersInForce&) = delete;

private:
    struct Shadowed {
        NameId name;
        ScopeId scope; ///< What the name meant before; 0 if it wasn't a parameter.
    };

    void shadow(NameId name, ScopeId scope) {
        ScopeId& meaning = state.parameters[name];
        shadowed.push_back({name, meaning});
        meaning = scope;
    }

    ParserState& state;
    std::vector<Shadowed> shadowed;
};

} // namespace ostrel
