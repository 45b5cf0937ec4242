#include "marketplace/FaultPlan.h"

#include <algorithm>

namespace {

constexpr const char *kFilterNames[] = {"category", "product", "store",      "tax",
                                        "seller",   "word",    "publication"};
constexpr std::size_t kDefaultOverlongSize = 70000;
constexpr const char *kDefaultDescription = "Error del servicio";

FaultEffect effectNamed(std::string_view name)
{
    if (name == "loseSession") {
        return FaultEffect::LoseSession;
    }
    if (name == "cut") {
        return FaultEffect::Cut;
    }
    if (name == "malformed") {
        return FaultEffect::Malformed;
    }
    if (name == "overlong") {
        return FaultEffect::Overlong;
    }
    if (name == "wrongOperation") {
        return FaultEffect::WrongOperation;
    }
    if (name == "noOperations") {
        return FaultEffect::NoOperations;
    }
    if (name == "omit") {
        return FaultEffect::Omit;
    }
    if (name == "emptyDescription") {
        return FaultEffect::EmptyDescription;
    }
    return FaultEffect::None;
}

} // namespace

FaultPlan::FaultPlan(pugi::xml_node faults)
{
    for (pugi::xml_node node : faults.children("Fault")) {
        Rule rule;
        rule.operation = node.attribute("operation").value();
        rule.call = node.attribute("call").as_int(0);
        for (const char *name : kFilterNames) {
            if (pugi::xml_attribute filter = node.attribute(name)) {
                rule.filters[name] = filter.value();
            }
        }
        rule.fault.description = node.attribute("description").value();
        if (node.attribute("code")) {
            rule.fault.code = node.attribute("code").as_int();
            if (rule.fault.description.empty()) {
                rule.fault.description = kDefaultDescription;
            }
        }
        rule.fault.delayMs = node.attribute("delayMs").as_int(0);
        rule.fault.effect = effectNamed(node.attribute("effect").value());
        rule.fault.size = node.attribute("size").as_ullong(kDefaultOverlongSize);
        m_rules.push_back(std::move(rule));
    }
}

std::optional<Fault> FaultPlan::onCall(const std::string &operation, const Context &context)
{
    const int call = ++m_calls[operation];
    std::optional<Fault> found;
    for (const Rule &rule : m_rules) {
        if (rule.operation == operation && (rule.call == 0 || rule.call == call) &&
            matches(rule, context)) {
            merge(found, rule.fault);
        }
    }
    return found;
}

std::optional<Fault> FaultPlan::forItem(const std::string &operation, const Context &item) const
{
    std::optional<Fault> found;
    for (const Rule &rule : m_rules) {
        if (rule.operation == operation && !rule.filters.empty() && matches(rule, item)) {
            merge(found, rule.fault);
        }
    }
    return found;
}

bool FaultPlan::matches(const Rule &rule, const Context &context)
{
    for (const auto &[name, value] : rule.filters) {
        const auto it = context.find(name);
        if (it == context.end() || it->second != value) {
            return false;
        }
    }
    return true;
}

void FaultPlan::merge(std::optional<Fault> &into, const Fault &fault)
{
    if (!into) {
        into = fault;
        return;
    }
    if (!into->code && fault.code) {
        into->code = fault.code;
        into->description = fault.description;
    }
    into->delayMs = std::max(into->delayMs, fault.delayMs);
    if (into->effect == FaultEffect::None) {
        into->effect = fault.effect;
        into->size = fault.size;
    }
}
