-- What became of each study: its content after each save, and its deletion. It outlives the study.
CREATE TABLE kiv_study_history (
  study_id INTEGER NOT NULL,
  revision INTEGER NOT NULL,
  event TEXT NOT NULL CHECK (event IN ('known', 'created', 'changed', 'deleted', 'restored')),
  changed_by TEXT NOT NULL,
  changed_at TEXT NOT NULL,
  kind TEXT NOT NULL,
  name TEXT NOT NULL,
  content TEXT,
  PRIMARY KEY (study_id, revision)
);

-- Finds the deleted studies without reading what the others contain.
CREATE INDEX kiv_study_history_deleted ON kiv_study_history (study_id, revision) WHERE event = 'deleted';
