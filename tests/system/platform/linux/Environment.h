#pragma once

#include <optional>
#include <string>

#include <glib.h>

/// An environment variable of this process with another value, or with one that other code is about to change: as it
/// was before when this goes.
class ScopedVariable {
public:
    explicit ScopedVariable(const char* name)
        : _name(name) {
        if (const char* const value = g_getenv(name)) {
            _before = value;
        }
    }
    ScopedVariable(const char* name, const std::string& value)
        : ScopedVariable(name) {
        g_setenv(name, value.c_str(), TRUE);
    }
    ~ScopedVariable() {
        if (_before) {
            g_setenv(_name, _before->c_str(), TRUE);
        } else {
            g_unsetenv(_name);
        }
    }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    const char* _name;
    std::optional<std::string> _before{};
};
