#include "ConsoleUi.h"
#include "CtlSession.h"
#include "Doctor.h"
#include "DriftCheck.h"
#include "SendPreview.h"
#include "UnattendedSend.h"
#include "publication/SendReport.h"
#include "stores/ZorvantaMinistore.h"

#include <QCoreApplication>
#include <algorithm>
#include <fstream>
#include <iostream>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr const char *kUsage =
    "Uso: asistentectl ORDEN [opciones]\n"
    "  previsualizar [--minitienda ID]  lo que enviaría un envío ahora, sin enviar nada\n"
    "  enviar [--minitienda ID]         envía lo pendiente sin ventanas (0 todo aceptado,\n"
    "                                   1 rechazos o pendientes, 2 falló un enlace,\n"
    "                                   3 error grave u otro envío en curso)\n"
    "  informes [NOMBRE]                lista los informes de envío, o muestra uno\n"
    "  deriva [--reencolar N]           lo que quedó desparejo en las tablas (0 nada,\n"
    "                                   1 algo); --reencolar vuelve a encolar la\n"
    "                                   publicación N, trabada en P\n"
    "  diagnostico                      revisa cada enlace (0 todos bien, 2 alguno falla)\n";

/// The value of `--name VALUE` among the arguments, empty when absent.
std::string option(const std::vector<std::string> &args, const std::string &name)
{
    const auto at = std::find(args.begin(), args.end(), name);
    return at != args.end() && at + 1 != args.end() ? *(at + 1) : std::string();
}

int preview(const std::string &only)
{
    CtlSession session;
    if (!session.openLinks())
        return static_cast<int>(SendStatus::LinkFailed);
    SendPreview preview(std::cout);
    bool planned = true;
    for (const auto &store : session.linkedMinistores(only))
        planned = preview.show(*store) && planned;
    return planned ? 0 : static_cast<int>(SendStatus::Fatal);
}

int reports(const std::string &name)
{
    const std::filesystem::path folder = SendReport::folder();
    if (name.empty()) {
        std::vector<std::string> names;
        std::error_code error;
        for (const auto &entry : std::filesystem::directory_iterator(folder, error)) {
            if (entry.path().extension() == ".json")
                names.push_back(entry.path().stem().string());
        }
        std::sort(names.begin(), names.end());
        if (names.empty())
            std::cout << "No hay informes en " << folder.string() << "\n";
        for (const std::string &found : names)
            std::cout << found << "\n";
        return 0;
    }
    std::filesystem::path file = folder / name;
    if (file.extension() != ".json" && file.extension() != ".html")
        file += ".json";
    std::ifstream in(file);
    if (!in || name.find('/') != std::string::npos) {
        std::cerr << "No existe el informe " << name << "\n";
        return 1;
    }
    std::cout << in.rdbuf();
    return 0;
}

} // namespace

/// The assistant's command line: preview and run the send without its window, read the
/// reports the sends leave, find what drifted in the tables and check every link. Boxes go to
/// standard error and the log.
int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    setUi(std::make_unique<ConsoleUi>(std::cerr));
    const std::vector<std::string> args(argv + 1, argv + argc);
    const std::string command = args.empty() ? std::string() : args.front();
    try {
        if (command == "previsualizar")
            return preview(option(args, "--minitienda"));
        if (command == "enviar")
            return static_cast<int>(UnattendedSend(std::cout, std::cerr, isatty(STDOUT_FILENO))
                                        .run(option(args, "--minitienda")));
        if (command == "deriva") {
            CtlSession session;
            DriftCheck drift(std::cout, std::cerr);
            const std::string publication = option(args, "--reencolar");
            if (publication.empty() &&
                std::find(args.begin(), args.end(), "--reencolar") != args.end()) {
                std::cerr << kUsage;
                return 64;
            }
            return publication.empty() ? drift.show() : drift.requeue(publication);
        }
        if (command == "diagnostico") {
            CtlSession session;
            return Doctor(std::cout).run();
        }
        if (command == "informes")
            return reports(args.size() > 1 ? args[1] : std::string());
    } catch (const std::exception &error) {
        // Only an error the log could not take gets here.
        std::cerr << "asistentectl: " << error.what() << std::endl;
        return static_cast<int>(SendStatus::Fatal);
    }
    std::cerr << kUsage;
    return command.empty() || command == "ayuda" ? 0 : 64;
}
