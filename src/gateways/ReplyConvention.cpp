#include "gateways/ReplyConvention.h"

#include "platform/xml/XmlDocument.h"
#include "shell/Constants.h"
#include "shell/ErrorHandling.h"


ReplyConvention::ReplyConvention(Labels labels) : m_labels(std::move(labels)) {}

bool ReplyConvention::isResult(XmlDocument &document) const
{
    return withHandler(m_labels.isResult, [&] {
        document.setProperty("SelectionLanguage", "XPath");
        return document.documentElement().selectNodes("RESULT").length() > 0;
    });
}

std::int32_t ReplyConvention::errorNumber(XmlDocument &document) const
{
    return withHandler(m_labels.errorNumber, [&]() -> std::int32_t {
        if (!isResult(document))
            return 0;
        const XmlNodeList codes = document.documentElement().selectNodes("descendant::RETURNCODE");
        if (codes.length() == 0)
            return 0;
        return leadingNumber(codes.item(0).text());
    });
}

std::string ReplyConvention::errorDescription(XmlDocument &document) const
{
    return withHandler(m_labels.errorDescription, [&]() -> std::string {
        if (!isResult(document))
            return "Sin errores";
        const XmlNodeList descriptions =
            document.documentElement().selectNodes("descendant::DESCRIPTION");
        if (descriptions.length() == 0)
            return "Error desconocido";
        return descriptions.item(0).text();
    });
}

bool ReplyConvention::isError(XmlDocument &document) const
{
    return withHandler(m_labels.isError, [&] {
        return isResult(document) && errorNumber(document) != 0;
    });
}
