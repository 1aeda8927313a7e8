#pragma once

#include <QtTest/QtTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace zenutest {

// A directory of its own for files by their bytes, gone with the object.
class FileFixture
{
public:
    FileFixture()
        : root((std::filesystem::temp_directory_path() / "explorer-XXXXXX").string())
    {
        // The user that LesserUser becomes has to get in.
        if (!mkdtemp(root.data()) || chmod(root.c_str(), 0755) != 0) {
            qFatal("no directory for temporary files");
        }
    }
    ~FileFixture() { std::filesystem::remove_all(root); }
    FileFixture(FileFixture const &) = delete;
    FileFixture & operator=(FileFixture const &) = delete;

    std::string path(std::string const & name = std::string()) const
    {
        return name.empty() ? root : root + '/' + name;
    }
    void makeDirectory(std::string const & name) const
    {
        QCOMPARE(mkdir(path(name).c_str(), 0755), 0);
    }
    void makeFile(std::string const & name, std::size_t size = 0, mode_t mode = 0644) const
    {
        std::FILE * const file = std::fopen(path(name).c_str(), "wb");
        QVERIFY(file);
        std::fwrite(std::string(size, 'x').data(), 1, size, file);
        std::fclose(file);
        QCOMPARE(chmod(path(name).c_str(), mode), 0);
    }
    void makeLink(std::string const & target, std::string const & name) const
    {
        QCOMPARE(symlink(target.c_str(), path(name).c_str()), 0);
    }

private:
    std::string root;
};

// A link to nothing exists, too.
inline bool exists(std::string const & path)
{
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

inline bool isExecutable(std::string const & path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 && (status.st_mode & 0111) != 0;
}

// Nothing is closed to the superuser, so a test of closed directories goes on as nobody.
class LesserUser
{
public:
    LesserUser()
        : isChanged(geteuid() == 0 && seteuid(nobody) == 0)
    {
    }
    ~LesserUser()
    {
        if (isChanged && seteuid(0) != 0) {
            std::perror("seteuid");
        }
    }
    LesserUser(LesserUser const &) = delete;
    LesserUser & operator=(LesserUser const &) = delete;

private:
    static constexpr uid_t nobody = 65534;
    bool isChanged;
};

} // namespace zenutest
