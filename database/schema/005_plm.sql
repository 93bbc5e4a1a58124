CREATE TABLE KIV_PlmStudy (
  Id INTEGER PRIMARY KEY REFERENCES kiv_study (id) ON DELETE CASCADE,
  Path TEXT,
  DataFile TEXT,
  Tag TEXT
);

-- An update deletes the study's row and relies on its modes going with it.
CREATE TABLE KIV_PlmMode (
  Id INTEGER NOT NULL REFERENCES KIV_PlmStudy (Id) ON DELETE CASCADE,
  PlmMode INTEGER NOT NULL,
  Carrier INTEGER,
  ServiceOption INTEGER,
  GenerationType INTEGER,
  SelectionMethod TEXT,
  AmpsDistribution INTEGER,
  TdmaDistribution INTEGER,
  TotalDistribution INTEGER,
  SortBy TEXT,
  SelectFromList TEXT,
  RangeFrom INTEGER,
  RangeTo INTEGER,
  ExcludeAce TEXT,
  DistributionMethod TEXT,
  PRIMARY KEY (Id, PlmMode)
)@WITHOUT_ROWID@;

CREATE TABLE KIV_PlmChannelList (
  Id INTEGER NOT NULL REFERENCES KIV_PlmStudy (Id) ON DELETE CASCADE,
  PlmMode INTEGER NOT NULL,
  Channel INTEGER NOT NULL,
  PRIMARY KEY (Id, PlmMode, Channel)
)@WITHOUT_ROWID@;
