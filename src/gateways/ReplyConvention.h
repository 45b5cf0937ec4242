#pragma once

#include <cstdint>
#include <string>

class XmlDocument;

/// How the marketplace's service and the back office mark a reply's status: a direct child
/// RESULT of the document element, holding RETURNCODE and DESCRIPTION; 0 is success. A reply
/// with no RESULT is plain data and never an error. Both gateways read it through this one
/// implementation, each under its own error labels (`labels` names the gateway's four members,
/// e.g. "CommerceServer::Commerce_").
class ReplyConvention
{
public:
    struct Labels
    {
        std::string isResult;
        std::string errorNumber;
        std::string errorDescription;
        std::string isError;
    };
    explicit ReplyConvention(Labels labels);

    bool isResult(XmlDocument &document) const;
    /// The first RETURNCODE below the document element, read leniently (a leading number,
    /// anything else 0); 0 without RESULT or RETURNCODE.
    std::int32_t errorNumber(XmlDocument &document) const;
    /// The first DESCRIPTION; "Sin errores" without RESULT, "Error desconocido" without it.
    std::string errorDescription(XmlDocument &document) const;
    bool isError(XmlDocument &document) const;

private:
    Labels m_labels;
};
