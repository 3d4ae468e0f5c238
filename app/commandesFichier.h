#pragma once

class sessionHote;

/// The commands OPEN, SAVEAS and QSAVE of scripts, known for as long as this lives.
class commandesFichier {
public:
    explicit commandesFichier(sessionHote& session);
    ~commandesFichier();
    commandesFichier(const commandesFichier&) = delete;
    commandesFichier& operator=(const commandesFichier&) = delete;
};
