// A reply of the marketplace's SOAP service, read for the operations of the real description
// (rpc, the return value wrapped) and for a bare document reply, as a 200 and as a 500.
#include "platform/core/RaisedError.h"
#include "platform/soap/SoapEnvelope.h"
#include "platform/soap/WsdlReader.h"

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

/// GetSellerInformation as the description declares it, and the same in the bare form.
std::vector<SoapOperation> operations()
{
    std::ifstream file(ASISTENTE_FUZZ_WSDL);
    std::stringstream text;
    text << file.rdbuf();
    const WsdlReader reader(text.str(), ASISTENTE_FUZZ_WSDL);
    const SoapOperation wrapped =
        reader.port("zvtsorvek", "StoreSoapPort").operations.at("GetSellerInformation");
    SoapOperation bare = wrapped;
    bare.replyWrapped = false;
    return {wrapped, bare};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const std::vector<SoapOperation> known = operations();
    const std::string reply(reinterpret_cast<const char *>(data), size);
    // The operation's name only shows in the messages; its form decides what is read.
    for (const SoapOperation &operation : known) {
        for (const bool faultExpected : {false, true}) {
            try {
                SoapEnvelope::returnValue(operation, reply, faultExpected);
            } catch (const RaisedError &) {
            }
        }
    }
    return 0;
}
