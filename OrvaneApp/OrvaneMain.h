#pragma once

/// The entry of the process: it chooses which of the program's lives runs.
class OrvaneMain
{
public:
    static int main(int argc, char **argv);
};
