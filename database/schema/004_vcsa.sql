CREATE TABLE KIV_VcsStudy (
  ID INTEGER PRIMARY KEY REFERENCES kiv_study (id) ON DELETE CASCADE,
  Path TEXT,
  DataFile TEXT,
  EventA TEXT,
  EventB TEXT,
  EventC TEXT,
  EventD TEXT,
  EventE TEXT,
  EventF TEXT,
  EventG TEXT,
  EventH TEXT,
  EventI TEXT,
  EventJ TEXT,
  EventK TEXT,
  EventL TEXT,
  EventM TEXT,
  SingleDn TEXT,
  DirectionalSetup TEXT,
  CarrierData TEXT
);

-- The entity lists of all kinds; the list is the study's. Each key begins with what its query asks for.
CREATE TABLE KIV_Cell_List (
  kiv_list_id INTEGER NOT NULL REFERENCES kiv_study (id) ON DELETE CASCADE,
  InstanceId INTEGER NOT NULL,
  SystemId INTEGER NOT NULL,
  EcpId INTEGER NOT NULL,
  CellId INTEGER NOT NULL,
  PRIMARY KEY (kiv_list_id, SystemId, EcpId, CellId, InstanceId)
)@WITHOUT_ROWID@;

CREATE TABLE KIV_Antenna_List (
  kiv_list_id INTEGER NOT NULL REFERENCES kiv_study (id) ON DELETE CASCADE,
  InstanceId INTEGER NOT NULL,
  SystemId INTEGER NOT NULL,
  EcpId INTEGER NOT NULL,
  CellId INTEGER NOT NULL,
  AntennaId INTEGER NOT NULL,
  Selected TEXT NOT NULL,
  PRIMARY KEY (kiv_list_id, CellId, AntennaId, SystemId, EcpId, InstanceId)
)@WITHOUT_ROWID@;

CREATE TABLE KIV_Carrier_List (
  kiv_list_id INTEGER NOT NULL REFERENCES kiv_study (id) ON DELETE CASCADE,
  InstanceId INTEGER NOT NULL,
  SystemId INTEGER NOT NULL,
  EcpId INTEGER NOT NULL,
  CellId INTEGER NOT NULL,
  CarrierId INTEGER NOT NULL,
  Selected TEXT NOT NULL,
  PRIMARY KEY (kiv_list_id, CellId, CarrierId, SystemId, EcpId, InstanceId)
)@WITHOUT_ROWID@;

CREATE TABLE KIV_Ecp_List (
  kiv_list_id INTEGER NOT NULL REFERENCES kiv_study (id) ON DELETE CASCADE,
  InstanceId INTEGER NOT NULL,
  SystemId INTEGER NOT NULL,
  EcpId INTEGER NOT NULL,
  PRIMARY KEY (kiv_list_id, SystemId, EcpId, InstanceId)
)@WITHOUT_ROWID@;
