// feria-sim: the marketplace of the sandbox on a loopback port.
//   feria-sim [--port N] [--data DIR] [--state FILE]
// Prints "listening on http://127.0.0.1:N" once it accepts connections; stops on SIGTERM.
// With --state, what the stores publish, the requests and the taxes are kept in FILE.

#include "marketplace/FeriaServer.h"
#include "marketplace/MarketplaceData.h"
#include "platform/core/RaisedError.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <pthread.h>
#include <signal.h>
#include <string>
#include <thread>

#ifndef FERIA_SIM_DEFAULT_DATA
#define FERIA_SIM_DEFAULT_DATA "."
#endif

namespace {

constexpr int kDefaultPort = 8642;

int usage(const char *program)
{
    std::cerr << "uso: " << program << " [--port N] [--data DIR] [--state FILE]\n"
              << "  --port N   puerto local (0: uno libre); por omisión " << kDefaultPort << "\n"
              << "  --data DIR carpeta con marketplace.xml; por omisión " << FERIA_SIM_DEFAULT_DATA
              << "\n"
              << "  --state FILE conserva las publicaciones entre ejecuciones\n";
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    int port = kDefaultPort;
    std::string dataDir = FERIA_SIM_DEFAULT_DATA;
    std::string stateFile;
    for (int i = 1; i < argc; ++i) {
        const std::string option = argv[i];
        if (option == "--port" && i + 1 < argc) {
            char *end = nullptr;
            const long value = std::strtol(argv[++i], &end, 10);
            if (*end != '\0' || value < 0 || value > 65535) {
                return usage(argv[0]);
            }
            port = static_cast<int>(value);
        } else if (option == "--data" && i + 1 < argc) {
            dataDir = argv[++i];
        } else if (option == "--state" && i + 1 < argc) {
            stateFile = argv[++i];
        } else {
            return usage(argv[0]);
        }
    }

    // Every thread inherits the blocked signals, so only the waiter below receives them.
    sigset_t stopSignals;
    sigemptyset(&stopSignals);
    sigaddset(&stopSignals, SIGTERM);
    sigaddset(&stopSignals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);

    try {
        FeriaServer server(MarketplaceData::load(dataDir), stateFile);
        const int bound = server.bind(port);
        if (bound < 0) {
            std::cerr << "feria-sim: no se puede escuchar en 127.0.0.1:" << port << "\n";
            return 1;
        }
        std::atomic<bool> finished{false};
        std::thread waiter([&server, &stopSignals, &finished] {
            int received = 0;
            sigwait(&stopSignals, &received);
            // A stop that comes before the server loop has started is lost: ask until it ends.
            while (!finished) {
                server.stop();
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
            }
        });
        std::cout << "listening on http://127.0.0.1:" << bound << std::endl;
        const bool served = server.run();
        finished = true;
        // When the server ends by itself the waiter is still waiting: wake it.
        pthread_kill(waiter.native_handle(), SIGTERM);
        waiter.join();
        return served ? 0 : 1;
    } catch (const RaisedError &error) {
        std::cerr << "feria-sim: " << error.description() << "\n";
        return 1;
    }
}
