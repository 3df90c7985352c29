PRAGMA application_id=1836217204;
PRAGMA user_version=1;
PRAGMA foreign_keys=OFF;
BEGIN TRANSACTION;
CREATE TABLE meta(
  id INTEGER PRIMARY KEY CHECK (id = 1),
  variable_count INTEGER NOT NULL CHECK (variable_count >= 0),
  case_count INTEGER NOT NULL CHECK (case_count >= 0),
  generation INTEGER NOT NULL
) STRICT;
INSERT INTO meta VALUES(1,6,2,3);
CREATE TABLE variable(
  position INTEGER PRIMARY KEY CHECK (position >= 0),
  name TEXT NOT NULL,
  name_key TEXT NOT NULL UNIQUE,
  width INTEGER NOT NULL CHECK (width >= 0),
  label TEXT
) STRICT;
INSERT INTO variable VALUES(0,'q1','Q1',0,'Tea');
INSERT INTO variable VALUES(1,'q2','Q2',0,'Coffee');
INSERT INTO variable VALUES(2,'q3','Q3',0,NULL);
INSERT INTO variable VALUES(3,'n1','N1',0,NULL);
INSERT INTO variable VALUES(4,'t1','T1',8,'First colour');
INSERT INTO variable VALUES(5,'t2','T2',5,NULL);
CREATE TABLE value_label(
  variable INTEGER NOT NULL,
  ordinal INTEGER NOT NULL,
  value TEXT NOT NULL,
  label TEXT NOT NULL,
  PRIMARY KEY (variable, ordinal)
) STRICT, WITHOUT ROWID;
INSERT INTO value_label VALUES(0,0,'0','No');
INSERT INTO value_label VALUES(0,1,'1','Drinks tea');
INSERT INTO value_label VALUES(1,0,'0','No');
INSERT INTO value_label VALUES(1,1,'1','Drinks coffee');
INSERT INTO value_label VALUES(2,0,'1','Drinks milk');
CREATE TABLE mr_set(
  id INTEGER PRIMARY KEY,
  position INTEGER NOT NULL,
  name TEXT NOT NULL,
  name_key TEXT NOT NULL UNIQUE,
  type INTEGER NOT NULL CHECK (type IN (1, 2)),
  label TEXT NOT NULL,
  counted_value TEXT NOT NULL,
  label_from_variable INTEGER NOT NULL CHECK (label_from_variable IN (0, 1)),
  category_labels_from_counted_value INTEGER NOT NULL CHECK (category_labels_from_counted_value IN (0, 1))
) STRICT;
INSERT INTO mr_set VALUES(1,0,'$b','$B',1,'Colours','',0,0);
INSERT INTO mr_set VALUES(2,1,'$a','$A',2,'','1',0,1);
INSERT INTO mr_set VALUES(3,2,'$C','$C',1,'','',0,0);
CREATE TABLE mr_set_variable(
  set_id INTEGER NOT NULL,
  ordinal INTEGER NOT NULL,
  name TEXT NOT NULL,
  PRIMARY KEY (set_id, ordinal)
) STRICT, WITHOUT ROWID;
INSERT INTO mr_set_variable VALUES(1,0,'t1');
INSERT INTO mr_set_variable VALUES(1,1,'t2');
INSERT INTO mr_set_variable VALUES(2,0,'q1');
INSERT INTO mr_set_variable VALUES(2,1,'q2');
INSERT INTO mr_set_variable VALUES(3,0,'q1');
INSERT INTO mr_set_variable VALUES(3,1,'q2');
INSERT INTO mr_set_variable VALUES(3,2,'q3');
CREATE TABLE cases(
  position INTEGER PRIMARY KEY,
  cells TEXT NOT NULL
) STRICT;
INSERT INTO cases VALUES(0,'[1,0,1,7,"red","blue"]');
INSERT INTO cases VALUES(1,'[0,1,0,8,"","green"]');
COMMIT;
