// Ten lines a second at most: a line for each question would take longer than the question.
#include "Progress.h"

#include "Findings.h"

#include <iostream>
#include <unistd.h>

Progress::Progress()
    : m_IsTerminal(isatty(STDERR_FILENO) != 0), m_Next(std::chrono::steady_clock::now() + std::chrono::seconds(1))
{
}

Progress::~Progress()
{
    if (m_IsShown)
        std::cerr << "\r\x1b[K" << std::flush;
}

void Progress::Show(std::size_t number, std::size_t count, const std::string& what)
{
    if (!m_IsTerminal)
        return;
    const auto now = std::chrono::steady_clock::now();
    if (now < m_Next)
        return;
    m_Next = now + std::chrono::milliseconds(100);
    std::cerr << "\r\x1b[K" << number << "/" << count << " " << Printable(what) << std::flush;
    m_IsShown = true;
}
