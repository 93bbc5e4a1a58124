CREATE TABLE kiv_scenario (
  id INTEGER PRIMARY KEY,
  name TEXT NOT NULL UNIQUE COLLATE NOCASE
);

-- AUTOINCREMENT: the number of a deleted study must not come back as another study.
CREATE TABLE kiv_study (
  id INTEGER PRIMARY KEY AUTOINCREMENT,
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
