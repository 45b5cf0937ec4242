#include "publication/SendLock.h"

#include "platform/db/EmbeddedDatabase.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

SendLock::~SendLock()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

std::filesystem::path SendLock::fileFor(const std::string &database)
{
    std::filesystem::path file = embeddedDatabasePath(database);
    if (!file.empty())
        file.replace_extension(".envio.lock");
    return file;
}

bool SendLock::tryLock(const std::filesystem::path &file, std::string &why)
{
    if (m_fd >= 0)
        return true;
    const int fd = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0) {
        why =
            "No se pudo crear el archivo de bloqueo " + file.string() + ": " + std::strerror(errno);
        return false;
    }
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        ::close(fd);
        why = "Otro envío está en curso sobre esta base de datos (" + file.string() +
              "); no se envió nada";
        return false;
    }
    m_fd = fd;
    return true;
}
