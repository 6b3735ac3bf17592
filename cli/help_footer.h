#pragma once

/// Behind the help of the program and of every command.
inline constexpr const char* kHelpFooter = R"(
Examples:
  quarnel-cli check examples/two_story_y_up.qhm examples/two_story_y_up.csv
      checks a recorded building. The status lines come first, then a table per
      check with the verdicts of this tool and of the code, remarks, and where
      the files are: examples/two_story_y_up.aijR2Log.txt and
      ...aijR2Result.csv.
  quarnel-cli check job.qhm job.csv --json job.json --fail-on code
      writes the figures too, and ends with 3 unless all is OK by the code.
  quarnel-cli check job.csv
      checks the building that is open in the running host (Windows only); log
      and results go beside the host's model file.
  quarnel-cli sheet job.qhm job.csv
      the same run, and job.aijR2Sheet.html: the calculation sheet as one page
      for the browser, which prints on A4 as it is.
  quarnel-cli lint job.csv job.qhm
      says what a run would make of the input file: traps with their lines and
      what to write, then what a run reads. Writes nothing; --suggest does.
  quarnel-cli record job.csv job.qhm
      the same, and saves what the host answered: checking job.qhm with job.csv
      gives the same log and results where the host is not installed. With
      --all the recording can be checked with any input file.
  quarnel-cli import tables job.qhm --for job.csv
      makes a recorded building of tables that any analysis program exports;
      check, sheet and lint take the folder itself, too.
  quarnel-cli export job.qhm tables
      writes such tables of a recorded building, into a new folder.

The Route 2 Input file is comma-separated and ends with a line FIN, for example:
  DeadLoadCaseNumber,1,
  EarthquakeLoadCaseNumber,2,3,
  FIN

Exit codes:
  0  the run reached "Calculation Complete" (checks may still say FAIL)
  1  the run ended before, or a file cannot be written; standard error says
     why (lint: an error was found; import: the tables do not fit what is
     stated about them)
  2  wrong usage, files that would overwrite each other, or a file that cannot
     be read
  3  with --fail-on: the run is complete, and its verdict is not OK (PASS)

A file name that begins with a hyphen goes behind "--".)";
