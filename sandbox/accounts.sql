-- The sandbox's schemas and who may use them. Every statement ends with a line that holds nothing
-- but a slash; comments stand on lines of their own.

-- What the database came with: an account that lets the system's user in without a password, and
-- a helper schema whose name belongs to the dictionary here. The locked account that owns the
-- server's own views stays.
DROP USER IF EXISTS root@localhost
/
DROP DATABASE IF EXISTS sys
/

CREATE DATABASE scott
/
CREATE DATABASE "system"
/

CREATE USER scott@localhost IDENTIFIED BY 'tiger'
/
GRANT ALL PRIVILEGES ON scott.* TO scott@localhost WITH GRANT OPTION
/
CREATE USER "system"@localhost IDENTIFIED BY 'lantern'
/
GRANT ALL PRIVILEGES ON *.* TO "system"@localhost WITH GRANT OPTION
/
