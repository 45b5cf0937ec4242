#include "shell/Operation.h"

#include "shell/ClassDebugId.h"

Operation::Operation() : m_classDebugId(GetNextClassDebugID()) {}

OperationResult::OperationResult() : m_classDebugId(GetNextClassDebugID()) {}
