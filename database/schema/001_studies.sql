CREATE TABLE kiv_scenario (
  id @NUMBERED@,
  name @UNIQUE_NAME@
);

-- only postgresql
CREATE UNIQUE INDEX kiv_scenario_by_name ON kiv_scenario (lower(name));

-- The number of a deleted study must not come back as another study.
CREATE TABLE kiv_study (
  id @NUMBERED_FOR_GOOD@,
  kind TEXT NOT NULL,
  name TEXT NOT NULL,
  scenario_id INTEGER REFERENCES kiv_scenario (id),
  duration INTEGER,
  polling_interval INTEGER,
  retrieve_delay INTEGER,
  revision INTEGER NOT NULL DEFAULT 1,
  modified_by TEXT NOT NULL,
  modified_at TEXT NOT NULL
);

CREATE INDEX kiv_study_by_scenario ON kiv_study (scenario_id);

CREATE TABLE KIV_HomStudy (
  Id INTEGER PRIMARY KEY REFERENCES kiv_study (id) ON DELETE CASCADE,
  Path TEXT,
  DataFile TEXT,
  HomMode INTEGER,
  ToAmps TEXT,
  FromAmps TEXT,
  ToTdmaAmps TEXT,
  ToTdma TEXT,
  SemiSoft TEXT,
  Hard TEXT,
  ToCdmaAmps TEXT,
  SemiSoftPrimary TEXT,
  SoftPrimary TEXT,
  SoftAdd TEXT,
  SoftDrop TEXT
);
