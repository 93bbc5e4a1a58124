-- Each change that was made as one, whatever it changed. Its token, chosen by the program, tells after a lost answer
-- whether the change was stored.
CREATE TABLE kiv_change (
  token TEXT PRIMARY KEY,
  event TEXT NOT NULL,
  studies INTEGER NOT NULL,
  changed_by TEXT NOT NULL,
  changed_at TEXT NOT NULL,
  login_role TEXT
)@WITHOUT_ROWID@;

-- The change that an entry came with, and the role that the server had logged in.
ALTER TABLE kiv_study_history ADD COLUMN change_token TEXT;

ALTER TABLE kiv_study_history ADD COLUMN login_role TEXT;

CREATE INDEX kiv_study_history_by_change ON kiv_study_history (change_token);

-- only postgresql
CREATE FUNCTION kiv_note_login_role() RETURNS trigger LANGUAGE plpgsql AS $$
BEGIN
  NEW.login_role := session_user;
  RETURN NEW;
END $$;

-- only postgresql
CREATE TRIGGER kiv_change_login_role BEFORE INSERT ON kiv_change
  FOR EACH ROW EXECUTE FUNCTION kiv_note_login_role();

-- only postgresql
CREATE TRIGGER kiv_study_history_login_role BEFORE INSERT ON kiv_study_history
  FOR EACH ROW EXECUTE FUNCTION kiv_note_login_role();
