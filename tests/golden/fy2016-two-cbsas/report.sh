provider=14-7103
start=10/1/2015
end=9/30/2016
name='Two Rivers Home Health'
