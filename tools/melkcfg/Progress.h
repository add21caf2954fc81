// A line on a terminal for what takes longer than a second. In a pipe there is none.
#ifndef MELKCFG_Progress_H
#define MELKCFG_Progress_H

#include <chrono>
#include <string>

class Progress
{
public:
    Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress(); // takes the line away

    // "12/54 OVA/UFCurb.xml".
    void Show(std::size_t number, std::size_t count, const std::string& what);

private:
    const bool m_IsTerminal;
    std::chrono::steady_clock::time_point m_Next;
    bool m_IsShown = false;
};

#endif
