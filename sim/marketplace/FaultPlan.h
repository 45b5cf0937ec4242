#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <vector>

/// What an injected fault does to one call.
enum class FaultEffect {
    None,
    LoseSession,    ///< the back office forgets the caller's session before answering
    Cut,            ///< the connection drops halfway through the reply
    Malformed,      ///< the reply document is cut in half and sent as if whole
    Overlong,       ///< the reply document is padded to `size` characters
    WrongOperation, ///< the back office labels its reply with another operation number
    NoOperations,   ///< a batch is answered with its status alone, without its Operations
    Omit,           ///< one operation of a batch is neither applied nor answered
    EmptyDescription, ///< one operation of a batch is answered with an empty DESCRIPTION
};

struct Fault
{
    std::optional<std::int32_t> code;
    std::string description;
    int delayMs = 0;
    FaultEffect effect = FaultEffect::None;
    std::size_t size = 0;
};

/// The faults of the data file. A fault is
///   <Fault operation="GetCategoryContent|9|IniciarSesion|..." [call="N"]
///          [category=".." product=".." store=".." tax=".." seller=".."]
///          [publication=".." word="Publicar|Actualizar|Despublicar"]
///          [code="-8010" description=".."] [delayMs="1500"]
///          [effect="loseSession|cut|malformed|overlong|wrongOperation|noOperations|
///                  omit|emptyDescription"] [size="70000"]/>
/// It applies to the operation's N-th call (counting from 1) or to every call, and only when
/// each filter attribute equals the value of the same name in the call's context.
class FaultPlan
{
public:
    using Context = std::map<std::string, std::string>;

    explicit FaultPlan(pugi::xml_node faults);

    /// Counts one call of the operation and gives the fault that applies to it, if any. Faults
    /// found together add up: the first code, the longest delay, the first effect.
    std::optional<Fault> onCall(const std::string &operation, const Context &context);
    /// A fault for one item inside a call (a product of a batch, a tax), not counted as a call.
    std::optional<Fault> forItem(const std::string &operation, const Context &item) const;

private:
    struct Rule
    {
        std::string operation;
        int call = 0;
        Context filters;
        Fault fault;
    };

    static bool matches(const Rule &rule, const Context &context);
    static void merge(std::optional<Fault> &into, const Fault &fault);

    std::vector<Rule> m_rules;
    std::map<std::string, int> m_calls;
};
