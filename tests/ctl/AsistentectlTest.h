#pragma once

#include "SendPipelineTest.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <sys/wait.h>

/// The send tests' seller and marketplace, with the command line run as the seller runs it:
/// a process of its own in the seller's data folder, where it keeps its log and reports.
class AsistentectlTest : public SendPipelineTest
{
protected:
    struct Run
    {
        int status = -1;
        std::string out;
        std::string err;
    };

    /// Store 100 linked; a new publication (1, at `newPrice`), an update of 2's price from
    /// 10.00 to 12.50 and a withdrawal of 3.
    void queueAllThreeOperations(const char *newPrice = "10.00")
    {
        link("100", "DV-01");
        waiting(1, "E-1", "ZP-1", "L", "I", price(newPrice), 1);
        associate(2, "E-2", "ZP-2");
        publication(2, 2, "100", "K", price("10.00"));
        pending(2, 2, "100", "A", price("12.50"), 2);
        associate(3, "E-3", "ZP-3");
        publication(3, 3, "100", "K", price("10.00"));
        pending(3, 3, "100", "E", {}, 3);
    }

    Run ctl(const std::string &arguments)
    {
        const std::string dir = database->dir().string();
        const std::string command =
            "cd '" + dir + "' && '" ASISTENTECTL "' " + arguments + " > ctl.out 2> ctl.err";
        const int raw = std::system(command.c_str());
        Run run;
        run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
        run.out = file("ctl.out");
        run.err = file("ctl.err");
        return run;
    }
    /// A file of the seller's data folder, whole; empty when absent.
    std::string file(const std::string &name) const
    {
        std::ifstream in(database->dir() / name);
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }
    /// The store linked to a virtual deposit of the ERP.
    void link(const char *store, const char *deposit)
    {
        database->execute(Sql() << "INSERT INTO WITIENDAS (IdTienda, Descrip, IDDepoVDOVEL) "
                                   "VALUES ('"
                                << sqlText(store) << "', 'Tienda', '" << sqlText(deposit) << "')");
    }
    /// The output's lines that start with `prefix`, without it.
    static Texts linesAfter(const std::string &text, const std::string &prefix)
    {
        Texts found;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            if (line.rfind(prefix, 0) == 0)
                found.push_back(line.substr(prefix.size()));
        }
        return found;
    }
    static Texts lines(const std::string &text) { return linesAfter(text, ""); }

    /// Both tables, for before-and-after comparisons.
    Texts tables()
    {
        Texts all = publications();
        for (const std::string &row : pendings())
            all.push_back("pend " + row);
        return all;
    }
};
