#pragma once

#include "shell/ErrorHandling.h"

#include <string>
#include <utility>

/// A slot for a control's event: runs `body` as a procedure with its own handler labelled
/// `label` ("ShowMinistores:Asociar_Click"), inside the guard every toolkit callback needs.
template <class Body> auto eventProcedure(std::string label, Body body)
{
    return [label = std::move(label), body = std::move(body)] {
        guardEvent([&] { withHandler(label, body); });
    };
}
