// The service description the marketplace gives at start-up, read for each of the three ports
// the program binds, and every operation found turned into a request as a call would.
#include "platform/core/RaisedError.h"
#include "platform/soap/SoapEnvelope.h"
#include "platform/soap/WsdlReader.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char *>(data), size);
    try {
        const WsdlReader reader(text, "http://127.0.0.1/zvtservices/zvtsorvek.wsdl");
        for (const char *portName :
             {"StoreSoapPort", "CatalogOperationsSoapPort", "CatalogInfoSoapPort"}) {
            try {
                const SoapPort port = reader.port("zvtsorvek", portName);
                for (const auto &[name, operation] : port.operations) {
                    const std::vector<std::string> values(operation.parameters.size(), "V1042");
                    SoapEnvelope::request(operation, values);
                }
            } catch (const RaisedError &) {
            }
        }
    } catch (const RaisedError &) {
    }
    return 0;
}
